// Listening to a city's names one by one, as the game speaks them.
#pragma once

#include <string>
#include <vector>

namespace tamlo {

class Form1;

/// Runs a list of the 147 names; Enter speaks a corner with that name. Ends by EndOfProcess.
void HearCity(Form1& form, const std::string& city, const std::vector<std::string>& names);

}  // namespace tamlo
