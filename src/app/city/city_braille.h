// The map of a city in braille: a legend, four sheets around the restaurant, an index of names.
#pragma once

#include <string>
#include <vector>

#include "reading/translator.h"

namespace tamlo {

/// A BRF file for a city with these 147 names.
std::string CityInBraille(const std::string& city, const std::vector<std::string>& names,
                          BrailleTranslator& translator);

}  // namespace tamlo
