// Sentences about orders and about the tamlos delivered.
#pragma once

#include <string>
#include <string_view>

namespace tamlo {

/// The sentence up to the size: " There is an order for 3".
std::string OrderOpening(int quantity);

/// The item of an order's sentence: from the size up to the word "tamlo" and one more character, an
/// "s" or the full stop. Ten tamlos leave a blank before the size, which the greeting keeps.
std::string ItemPhrase(std::string_view sentence);

/// "delivered 12 tamlos for the Tamlo Vorrel. "
std::string TamlosDelivered(int count);

}  // namespace tamlo
