// Runs a fuzz target over the files of folders, and over every beginning of each short one; behind
// the argument --whole over whole files only, for targets that take their time.
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace {

constexpr std::size_t short_file = 4096;

void Run(const std::vector<char>& bytes, std::size_t size) {
    // An exact copy, so that the sanitizers notice a byte read behind it.
    const std::vector<std::uint8_t> input(bytes.begin(),
                                          bytes.begin() + static_cast<std::ptrdiff_t>(size));
    LLVMFuzzerTestOneInput(input.data(), input.size());
}

}  // namespace

int main(int count, char** arguments) {
    int files = 0;
    bool beginnings = true;
    for (int i = 1; i < count; ++i) {
        if (std::string_view(arguments[i]) == "--whole") {
            beginnings = false;
            continue;
        }
        for (const auto& entry : std::filesystem::directory_iterator(arguments[i])) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
            const std::size_t most = beginnings ? std::min(bytes.size(), short_file) : 0;
            for (std::size_t size = 0; size < most; ++size) {
                Run(bytes, size);
            }
            Run(bytes, bytes.size());
            ++files;
        }
    }
    std::cout << files << " files replayed\n";
    return files > 0 ? 0 : 1;
}
