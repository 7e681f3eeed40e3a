#include "orders/sentences.h"

#include <algorithm>

#include "text/number_text.h"

namespace tamlo {
namespace {

constexpr std::string_view opening = " There is an order for ";
constexpr std::string_view item = "tamlo";

}  // namespace

std::string OrderOpening(int quantity) {
    return std::string(opening) + std::to_string(quantity);
}

std::string ItemPhrase(std::string_view sentence) {
    const std::size_t size = opening.size() + 2;  // after one digit and a blank
    const std::string_view rest = sentence.substr(std::min(size, sentence.size()));
    const std::size_t at = rest.find(item);
    return std::string(at == rest.npos ? rest : rest.substr(0, at + item.size() + 1));
}

std::string TamlosDelivered(int count) {
    return "delivered " + CountPicture(count) + " tamlo" + (count == 1 ? "" : "s") +
           " for the Tamlo Vorrel. ";
}

}  // namespace tamlo
