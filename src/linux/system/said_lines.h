// What was said and heard in a run, as lines to read again.
#pragma once

#include <string>
#include <string_view>

#include "linux/system/descriptor.h"

namespace tamlo {

/// Writes each line, with its date and time, to a file of the run: `said DATE TIME.txt` in a folder
/// that keeps the files of the last five runs. Each line can be read as soon as Add returns, so a
/// player can follow in another program. What can't be written is left out, and never told.
class SaidLines {
  public:
    /// `folder` is there, or empty for none.
    explicit SaidLines(const std::string& folder);

    /// Printable, without a line end.
    void Add(std::string_view line);

  private:
    Descriptor file_;
    std::size_t left_;  ///< bytes that may still be written
};

}  // namespace tamlo
