// A claim on a folder, so that two games don't write the same files.
#pragma once

#include <string>

#include "linux/system/descriptor.h"

namespace tamlo {

/// Excludes other claims on the same folder until this object or the process ends, however it ends.
/// The folder itself is locked: nothing is written, and no file of ours stays behind. No program
/// that this one starts inherits the claim.
class FolderLock {
  public:
    explicit FolderLock(std::string folder);

    /// Tries to take the claim, without waiting. False only if another process holds it: a folder
    /// that is missing, can't be read or is on a disk without locks is nobody's, and never refused.
    bool Take();

  private:
    std::string folder_;
    Descriptor opened_;
};

}  // namespace tamlo
