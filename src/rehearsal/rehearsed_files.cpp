#include "rehearsal/rehearsed_files.h"

#include <utility>

namespace tamlo {

namespace {

bool IsAbsolute(const std::string& path) {
    return path.starts_with('/') || path.starts_with('\\');
}

}  // namespace

RehearsedFiles::RehearsedFiles(Stage& stage, Files& disk, std::string current_directory)
    : stage_(stage), disk_(disk), current_directory_(std::move(current_directory)) {}

/// The path as an absolute one, for a call of the game's.
std::string RehearsedFiles::From(const std::string& path) {
    stage_.Asked();
    if (path.empty() || IsAbsolute(path)) return path;
    return current_directory_ + '/' + path;
}

std::string RehearsedFiles::FindFile(const std::string& path) {
    // What is found keeps the form in which it was looked for.
    std::string found = disk_.FindFile(From(path));
    if (!found.empty() && !IsAbsolute(path)) found.erase(0, current_directory_.size() + 1);
    return found;
}

std::string RehearsedFiles::FindFolder(const std::string& path) {
    std::string found = disk_.FindFolder(From(path));
    if (!found.empty() && !IsAbsolute(path)) found.erase(0, current_directory_.size() + 1);
    return found;
}

std::vector<std::string> RehearsedFiles::List(const std::string& folder, std::string_view pattern) {
    return disk_.List(From(folder), pattern);
}

std::optional<std::uint64_t> RehearsedFiles::Length(const std::string& path) {
    return disk_.Length(From(path));
}

ReadResult RehearsedFiles::Read(const std::string& path) {
    return disk_.Read(From(path));
}

bool RehearsedFiles::Replace(const std::string& path, std::string_view bytes) {
    return disk_.Replace(From(path), bytes);
}

bool RehearsedFiles::Append(const std::string& path, std::string_view bytes) {
    return disk_.Append(From(path), bytes);
}

bool RehearsedFiles::Delete(const std::string& path) {
    return disk_.Delete(From(path));
}

bool RehearsedFiles::Rename(const std::string& from, const std::string& to) {
    return disk_.Rename(From(from), From(to));
}

bool RehearsedFiles::MakeFolder(const std::string& path) {
    return disk_.MakeFolder(From(path));
}

std::string RehearsedFiles::CurrentDirectory() {
    stage_.Asked();
    return current_directory_;
}

}  // namespace tamlo
