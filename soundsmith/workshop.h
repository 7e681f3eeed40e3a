// Makes the set of wave files in a folder, and only what is missing or changed of it.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "sound/effects.h"

namespace tamlo::soundsmith {

struct SetResult {
    int made = 0;
    int taken = 0;                      // from the other set
    std::vector<std::string> failures;  ///< one line each, naming the effect
};

class Workshop {
  public:
    /// Called after each file, from any of the threads, one at a time.
    using Progress = std::function<void(std::string_view name, int done, int of)>;

    /// `folder` is made when it does not exist. Files that stand in `other` (may be empty) with the
    /// same stamp are copied instead of made.
    explicit Workshop(std::filesystem::path folder, std::filesystem::path other = {});

    /// Makes all effects whose file is missing, was altered, or would come out differently today.
    /// Each file is complete or absent at any moment; stopping at any time loses only the files in
    /// the making.
    SetResult MakeSet(const Progress& progress);

    /// Makes these effects whatever stands there.
    SetResult Make(const std::vector<const Effect*>& effects, const Progress& progress);

  private:
    std::filesystem::path folder_;
    std::filesystem::path other_;
};

}  // namespace tamlo::soundsmith
