// Runs the programs that speak and change voices.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tamlo::soundsmith {

/// A folder for the files that these programs hand on, removed with its content in the end.
class ScratchFolder {
  public:
    /// Throws std::runtime_error when it can't be made.
    ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder();
    const std::filesystem::path& Path() const { return path_; }

  private:
    std::filesystem::path path_;
};

/// Runs `command` with `scratch` as its home, so that no settings of the user change the sound, and
/// returns its standard output. The first word is looked for in PATH unless it has a "/". Throws
/// std::runtime_error when it fails or takes longer than two minutes.
std::string RunProgram(const std::vector<std::string>& command, const ScratchFolder& scratch);

}  // namespace tamlo::soundsmith
