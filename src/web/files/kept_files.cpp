#include "web/files/kept_files.h"

#include <algorithm>
#include <utility>

#include "text/names.h"

namespace tamlo {
namespace {

std::string ParentOf(const std::string& path) {
    return path.substr(0, path.rfind('/'));
}

/// The key that a name stands for: as it is, else the first that differs only in case.
template <class Map>
std::string FindName(const Map& files, const std::string& name) {
    if (files.find(name) != files.end()) return name;
    const auto found = std::find_if(files.begin(), files.end(), [&](const auto& file) {
        return CompareNames(file.first, name) == 0;
    });
    return found == files.end() ? "" : found->first;
}

template <class Map>
std::vector<std::string> NamesLike(const Map& files, std::string_view pattern) {
    std::vector<std::string> names;
    for (const auto& file : files) {
        if (MatchesPattern(file.first, pattern)) names.push_back(file.first);
    }
    std::stable_sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        return CompareNames(a, b) < 0;
    });
    return names;
}

}  // namespace

KeptFiles::KeptFiles(Folders folders, Keeper& keeper)
    : folders_(std::move(folders)), keeper_(keeper) {}

void KeptFiles::PutPlayers(const std::string& name, std::string bytes) {
    players_[name] = std::move(bytes);
}

void KeptFiles::PutPrograms(const std::string& name, std::string_view bytes) {
    programs_[name] = bytes;
}

void KeptFiles::TakePlayers(const std::string& name) {
    players_.erase(name);
}

void KeptFiles::Arrive() {
    if (const auto arrive = std::exchange(arrive_, {})) arrive();
}

std::optional<std::string_view> KeptFiles::Programs(const std::string& name) {
    if (programs_.find(name) == programs_.end()) Arrive();
    const auto found = programs_.find(name);
    if (found == programs_.end()) return std::nullopt;
    return found->second;
}

KeptFiles::Place KeptFiles::Parse(const std::string& path) const {
    std::string whole = path;
    std::replace(whole.begin(), whole.end(), '\\', '/');
    while (whole.size() > 1 && whole.back() == '/') whole.pop_back();
    if (whole.empty() || whole.find('\0') != std::string::npos) return {};
    if (whole.front() != '/') whole = folders_.program + '/' + whole;
    return {ParentOf(whole), whole.substr(whole.rfind('/') + 1)};
}

std::string KeptFiles::NameOf(const Place& place) {
    if (IsPlayers(place)) return FindName(players_, place.name);
    if (place.folder != folders_.program) return "";
    if (programs_.find(place.name) == programs_.end()) Arrive();
    return FindName(programs_, place.name);
}

std::string_view KeptFiles::BytesOf(const Place& place, const std::string& name) const {
    return IsPlayers(place) ? players_.find(name)->second : programs_.find(name)->second;
}

std::string KeptFiles::FindFile(const std::string& path) {
    const std::string name = NameOf(Parse(path));
    if (name.empty()) return "";
    return path.substr(0, path.find_last_not_of("/\\") + 1 - name.size()) + name;
}

std::string KeptFiles::FindFolder(const std::string& path) {
    const Place place = Parse(path);
    const std::string wanted = place.folder + '/' + place.name;
    for (const std::string& folder :
         {folders_.player, folders_.program, ParentOf(folders_.player)}) {
        const bool same_place = ParentOf(folder) == place.folder;
        if (same_place && CompareNames(folder, wanted) == 0) return folder;
    }
    return "";
}

std::vector<std::string> KeptFiles::List(const std::string& folder, std::string_view pattern) {
    const std::string found = FindFolder(folder);
    if (found == folders_.player) return NamesLike(players_, pattern);
    if (found != folders_.program) return {};
    Arrive();
    return NamesLike(programs_, pattern);
}

std::optional<std::uint64_t> KeptFiles::Length(const std::string& path) {
    const Place place = Parse(path);
    const std::string name = NameOf(place);
    if (name.empty()) return std::nullopt;
    return BytesOf(place, name).size();
}

ReadResult KeptFiles::Read(const std::string& path) {
    const Place place = Parse(path);
    const std::string name = NameOf(place);
    if (name.empty()) return {};
    return {ReadResult::Outcome::ok, std::string(BytesOf(place, name))};
}

bool KeptFiles::Replace(const std::string& path, std::string_view bytes) {
    const Place place = Parse(path);
    if (!IsPlayers(place)) return false;
    const std::string found = NameOf(place);
    const std::string name = found.empty() ? place.name : found;
    std::string content(bytes);
    if (!keeper_.Keep({{name, content}})) return false;
    players_[name] = std::move(content);
    return true;
}

bool KeptFiles::Append(const std::string& path, std::string_view bytes) {
    std::string whole = Read(path).bytes;
    whole.erase(whole.find_last_not_of('\0') + 1);
    if (!whole.empty() && whole.back() != '\n') whole += "\r\n";
    return Replace(path, whole.append(bytes));
}

bool KeptFiles::Delete(const std::string& path) {
    const Place place = Parse(path);
    const std::string name = NameOf(place);
    if (!IsPlayers(place) || name.empty() || !keeper_.Keep({{name, std::nullopt}})) return false;
    players_.erase(name);
    return true;
}

bool KeptFiles::Rename(const std::string& from, const std::string& to) {
    const Place place = Parse(from);
    const Place target = Parse(to);
    const std::string name = NameOf(place);
    if (!IsPlayers(place) || !IsPlayers(target) || name.empty() || !NameOf(target).empty()) {
        return false;
    }
    std::string content(BytesOf(place, name));
    if (!keeper_.Keep({{target.name, content}, {name, std::nullopt}})) return false;
    players_.erase(name);
    players_[target.name] = std::move(content);
    return true;
}

bool KeptFiles::MakeFolder(const std::string& path) {
    // There is one to be made, and it is there.
    static_cast<void>(path);
    return false;
}

}  // namespace tamlo
