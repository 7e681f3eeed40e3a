// The text of the configuration file: five lines, one number each.
#pragma once

#include <string>
#include <string_view>

namespace tamlo {

struct Settings {
    int nv = 0;     ///< index of the voice, from 0
    int vr = 0;     ///< speech rate
    int vv = 100;   ///< speech volume, 0 to 100
    int wavol = 0;  ///< sound volume, -3500 to 0
    int gnd = 1;    ///< 1 female, 2 male
};

/// Numbers that are not negative have a blank before them; each line ends with CR LF.
std::string FormatSettings(const Settings& settings);

/// Reads the five numbers, ignoring blanks around each. A missing number, or one that is not whole,
/// keeps its default; one that is out of range is limited to it. A voice that is not one of
/// `voices` becomes the first.
Settings ParseSettings(std::string_view bytes, int voices);

}  // namespace tamlo
