// A fresh folder for one test, removed behind it.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace tamlo {

class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "tamlo-XXXXXX").string();
        path_ = ::mkdtemp(pattern.data());
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::string& Path() const { return path_; }
    std::string operator/(const std::string& name) const { return path_ + "/" + name; }

    void Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(*this / name, std::ios::binary) << bytes;
    }
    std::string Content(const std::string& name) const {
        std::ifstream file(*this / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// How many entries the folder has, hidden ones and folders included.
    std::ptrdiff_t Entries() const {
        return std::distance(std::filesystem::directory_iterator(path_), {});
    }

  private:
    std::string path_;
};

}  // namespace tamlo
