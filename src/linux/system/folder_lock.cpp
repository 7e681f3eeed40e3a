#include "linux/system/folder_lock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <utility>

namespace tamlo {

FolderLock::FolderLock(std::string folder) : folder_(std::move(folder)) {}

bool FolderLock::Take() {
    if (!opened_) {
        opened_ = Descriptor(::open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    }
    return !opened_ || ::flock(opened_.Number(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

}  // namespace tamlo
