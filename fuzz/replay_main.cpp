// Runs a fuzz target over the files of a folder, and over every beginning of each short one.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
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
    for (int i = 1; i < count; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(arguments[i])) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
            for (std::size_t size = 0; size < bytes.size() && size < short_file; ++size) {
                Run(bytes, size);
            }
            Run(bytes, bytes.size());
            ++files;
        }
    }
    std::cout << files << " files replayed\n";
    return files > 0 ? 0 : 1;
}
