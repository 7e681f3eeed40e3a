// The text of the configuration file: five lines, one number each.
#pragma once

#include <string>
#include <string_view>

namespace tamlo {

struct Settings {
    int nv = 0;     // index of the voice, from 0
    int vr = 0;     // speech rate
    int vv = 100;   // speech volume, 0 to 100
    int wavol = 0;  // sound volume, -3500 to 0
    int gnd = 1;    // 1 female, 2 male
};

/// A blank stands before a number that is not negative; each line ends with CR LF.
std::string FormatSettings(const Settings& settings);

/// Reads the five numbers, blanks around each ignored. What is missing or not a whole number keeps
/// its default; what is out of range is brought into it, and a voice that is not one of
/// `voices` is the first.
Settings ParseSettings(std::string_view bytes, int voices);

}  // namespace tamlo
