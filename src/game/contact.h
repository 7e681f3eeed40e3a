// How a player reaches the makers: spoken in the instructions and in the two failure messages. Set
// by the build (TAMLO_CONTACT_...); the defaults name nobody.
#pragma once

#include <array>
#include <string_view>

namespace tamlo {

inline constexpr std::string_view contact_name = TAMLO_CONTACT_NAME;

/// E-mail address, web address, telephone number, town with its region and country.
inline constexpr std::array<std::string_view, 4> contact_details = {
    TAMLO_CONTACT_EMAIL, TAMLO_CONTACT_WEB, TAMLO_CONTACT_PHONE, TAMLO_CONTACT_TOWN};

}  // namespace tamlo
