// A report of the set of wave files: a page for people and a table of text, so that a change of a
// sound can be seen as well as heard.
#pragma once

#include <filesystem>

namespace tamlo::soundsmith {

/// Measures the files of `set` and writes into `folder`, which is made when it does not exist:
/// report.html with its pictures and a copy of every sound, and report.txt. A file that is missing
/// or cannot be read has a line that says so. Returns the number of sounds outside their limits,
/// those files included. Throws std::runtime_error when it cannot write.
int WriteReport(const std::filesystem::path& set, const std::filesystem::path& folder);

}  // namespace tamlo::soundsmith
