#include "rehearsal/rehearsed_files.h"

#include <utility>

namespace tamlo {

namespace {

bool IsSlash(char c) {
    return c == '/' || c == '\\';
}

/// Whether the path begins at a root: "/home", "\\server" or, with a drive, "C:/Users".
bool IsAbsolute(std::string_view path) {
    if (path.size() >= 2 && path[1] == ':') path.remove_prefix(2);
    return !path.empty() && IsSlash(path.front());
}

}  // namespace

RehearsedFiles::RehearsedFiles(Stage& stage, Files& disk, std::string current_directory)
    : ForwardingFiles(disk), stage_(stage), current_directory_(std::move(current_directory)) {}

std::string RehearsedFiles::PathFor(const std::string& path) {
    if (path.empty() || IsAbsolute(path)) return path;
    return current_directory_ + '/' + path;
}

/// The path that was found, absolute or relative as the one that was searched.
std::string RehearsedFiles::Shown(const std::string& path, std::string found) const {
    if (!found.empty() && !IsAbsolute(path)) found.erase(0, current_directory_.size() + 1);
    return found;
}

std::string RehearsedFiles::FindFile(const std::string& path) {
    return Shown(path, ForwardingFiles::FindFile(path));
}

std::string RehearsedFiles::FindFolder(const std::string& path) {
    return Shown(path, ForwardingFiles::FindFolder(path));
}

std::string RehearsedFiles::CurrentDirectory() {
    Asked();
    return current_directory_;
}

}  // namespace tamlo
