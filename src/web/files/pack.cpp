#include "web/files/pack.h"

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace tamlo {
namespace {

std::optional<std::uint32_t> TakeNumber(std::string_view& from) {
    if (from.size() < 4) return std::nullopt;
    std::uint32_t number = 0;
    for (int i = 3; i >= 0; --i) {
        number = number << 8 | static_cast<unsigned char>(from[static_cast<std::size_t>(i)]);
    }
    from.remove_prefix(4);
    return number;
}

}  // namespace

bool ReadPack(std::string_view pack,
              const std::function<void(const std::string& name, std::string_view bytes)>& put) {
    const auto count = TakeNumber(pack);
    if (!count) return false;
    std::vector<std::pair<std::string, std::uint32_t>> files;
    std::uint64_t total = 0;
    for (std::uint32_t i = 0; i < *count; ++i) {
        const std::size_t end = pack.find('\0');
        if (end == std::string_view::npos) return false;
        std::string name(pack.substr(0, end));
        pack.remove_prefix(end + 1);
        const auto length = TakeNumber(pack);
        if (!length) return false;
        files.emplace_back(std::move(name), *length);
        total += *length;
    }
    if (total != pack.size()) return false;
    for (const auto& [name, length] : files) {
        put(name, pack.substr(0, length));
        pack.remove_prefix(length);
    }
    return true;
}

}  // namespace tamlo
