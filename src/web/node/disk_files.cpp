// The disk under node, where the game is rehearsed and tested: every operation is done on a copy of
// the one folder that it concerns, by the code that serves the browser, and its change written out.
#include "services/disk_files.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "text/names.h"
#include "web/files/kept_files.h"

namespace tamlo {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t longest_file = 64 << 20;

std::string Normalised(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return path;
}

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash);
}

std::optional<std::string> Content(const std::string& path) {
    std::error_code none;
    if (!fs::is_regular_file(path, none) || fs::file_size(path, none) > longest_file) return {};
    std::ifstream file(path, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), {}};
    if (file.bad()) return {};
    return bytes;
}

class FolderKeeper final : public Keeper {
  public:
    explicit FolderKeeper(std::string folder) : folder_(std::move(folder)) {}
    bool Keep(const std::vector<Change>& changes) override {
        bool kept = true;
        for (const Change& change : changes) {
            const std::string path = folder_ + '/' + change.name;
            std::error_code failure;
            if (!change.bytes) {
                kept = fs::remove(path, failure) && kept;
                continue;
            }
            std::ofstream file(path, std::ios::binary);
            file.write(change.bytes->data(), static_cast<std::streamsize>(change.bytes->size()));
            file.close();
            kept = file.good() && kept;
        }
        return kept;
    }

  private:
    std::string folder_;
};

/// A folder as the player's, with what it holds; files are read only if they are `wanted`.
struct Shelf {
    Shelf(const std::string& folder, const std::string& wanted)
        : keeper(folder), files({folder, "/nowhere"}, keeper) {
        std::error_code none;
        for (fs::directory_iterator at(folder, none), end; !none && at != end; at.increment(none)) {
            const std::string name = at->path().filename().string();
            if (!at->is_regular_file(none)) continue;
            const bool needed = CompareNames(name, wanted) == 0;
            const std::optional<std::string> bytes = needed ? Content(at->path()) : "";
            if (bytes) files.PutPlayers(name, *bytes);
        }
    }

    FolderKeeper keeper;
    KeptFiles files;
};

/// Does something with the folder of a path; `act` gets its files and the path in them.
template <class Act>
auto OnShelf(const std::string& path, Act act) {
    const std::string normalised = fs::absolute(Normalised(path)).string();
    const std::string folder = FolderOf(normalised);
    Shelf shelf(folder, normalised.substr(folder.size() + 1));
    return act(shelf.files, normalised);
}

}  // namespace

std::string DiskFiles::FindFile(const std::string& path) {
    const std::string wanted = Normalised(path);
    if (std::error_code none; wanted.empty() || fs::is_regular_file(wanted, none)) return wanted;
    const std::string found =
        OnShelf(path, [](KeptFiles& files, const std::string& at) { return files.FindFile(at); });
    if (found.empty()) return "";
    const std::size_t name = found.rfind('/') + 1;
    return wanted.substr(0, wanted.size() - (found.size() - name)) + found.substr(name);
}

std::string DiskFiles::FindFolder(const std::string& path) {
    const std::string wanted = Normalised(path);
    std::error_code none;
    if (wanted.empty() || fs::is_directory(wanted, none)) return wanted;
    const std::string before = FolderOf(wanted);
    std::string best;
    for (fs::directory_iterator at(before, none), end; !none && at != end; at.increment(none)) {
        const std::string name = at->path().filename().string();
        const bool same = CompareNames(name, fs::path(wanted).filename().string()) == 0;
        if (same && at->is_directory(none) && (best.empty() || name < best)) best = name;
    }
    return best.empty() ? "" : before + '/' + best;
}

std::vector<std::string> DiskFiles::List(const std::string& folder, std::string_view pattern) {
    const std::string found = FindFolder(folder);
    if (found.empty()) return {};
    const std::string absolute = fs::absolute(found).string();
    return Shelf(absolute, "").files.List(absolute, pattern);
}

std::optional<std::uint64_t> DiskFiles::Length(const std::string& path) {
    const std::string found = FindFile(path);
    if (found.empty()) return std::nullopt;
    std::error_code failure;
    const std::uintmax_t length = fs::file_size(found, failure);
    return failure ? std::nullopt : std::optional<std::uint64_t>(length);
}

ReadResult DiskFiles::Read(const std::string& path) {
    if (path.empty()) return {};
    const std::string found = FindFile(path);
    std::error_code none;
    // What is there and is no file can't be read.
    if (found.empty() && fs::exists(Normalised(path), none)) {
        return {ReadResult::Outcome::failed, ""};
    }
    return OnShelf(path, [](KeptFiles& files, const std::string& at) { return files.Read(at); });
}

bool DiskFiles::Replace(const std::string& path, std::string_view bytes) {
    return OnShelf(
        path, [&](KeptFiles& files, const std::string& at) { return files.Replace(at, bytes); });
}

bool DiskFiles::Append(const std::string& path, std::string_view bytes) {
    return OnShelf(
        path, [&](KeptFiles& files, const std::string& at) { return files.Append(at, bytes); });
}

bool DiskFiles::Delete(const std::string& path) {
    return OnShelf(path, [](KeptFiles& files, const std::string& at) { return files.Delete(at); });
}

bool DiskFiles::Rename(const std::string& from, const std::string& to) {
    const std::string target = fs::absolute(Normalised(to)).string();
    return OnShelf(
        from, [&](KeptFiles& files, const std::string& at) { return files.Rename(at, target); });
}

bool DiskFiles::MakeFolder(const std::string& path) {
    std::error_code failure;
    const std::string folder = Normalised(path);
    return !folder.empty() && FindFolder(folder).empty() && fs::create_directory(folder, failure);
}

std::string DiskFiles::CurrentDirectory() {
    std::error_code failure;
    const fs::path current = fs::current_path(failure);
    return failure ? "" : current.string();
}

}  // namespace tamlo
