// Any bytes as the user-dirs file: no folder, or an absolute path that can be used.
#include <string>

#include "fuzzing.h"
#include "linux/system/user_dirs.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace tamlo;
    for (const std::string home : {"/home/driver", "/", ""}) {
        const std::string folder = DocumentsInUserDirs(TextOf(bytes, size), home);
        if (folder.empty()) continue;
        Check(folder.starts_with('/') && (folder.size() == 1 || !folder.ends_with('/')));
        Check(folder.find('\0') == std::string::npos && folder.find('\n') == std::string::npos);
        Check(folder.size() <= size + home.size());
    }
    return 0;
}
