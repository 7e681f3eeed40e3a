#include "linux/system/said_lines.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>

#include "services/disk_files.h"

namespace tamlo {
namespace {

constexpr std::string_view pattern = "said *.txt";
constexpr std::size_t runs_kept = 5;
constexpr std::size_t longest_file = 8 * 1024 * 1024;  // days of play

std::string Now(const char* form) {
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    ::localtime_r(&now, &local);
    char text[64];
    return {text, std::strftime(text, sizeof text, form, &local)};
}

/// The names begin with the date, so the first in order are the oldest.
void RemoveOldest(const std::string& folder) {
    DiskFiles files;
    const std::vector<std::string> names = files.List(folder, pattern);
    for (std::size_t i = 0; i + runs_kept <= names.size(); ++i) {
        files.Delete(folder + "/" + names[i]);
    }
}

}  // namespace

SaidLines::SaidLines(const std::string& folder) : left_(longest_file) {
    if (folder.empty()) return;
    RemoveOldest(folder);
    const std::string path = folder + "/said " + Now("%Y-%m-%d %H.%M.%S") + ".txt";
    const int flags = O_WRONLY | O_CREAT | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    file_ = Descriptor(::open(path.c_str(), flags, 0600));
}

void SaidLines::Add(std::string_view line) {
    const std::string text = Now("%Y-%m-%d %H:%M:%S ") + std::string(line) + "\n";
    if (!file_ || line.empty() || text.size() > left_) return;
    left_ -= text.size();
    const ssize_t written = ::write(file_.Number(), text.data(), text.size());
    // On a full disk no more is tried: half lines would follow.
    if (written != static_cast<ssize_t>(text.size())) file_ = Descriptor();
}

}  // namespace tamlo
