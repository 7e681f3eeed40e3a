// A disk that fails at a chosen operation on the player's folder, in a chosen way.
#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "services/disk_files.h"

namespace tamlo {

enum class FaultKind {
    once,         ///< that operation fails, and those after it work again
    stuck,        ///< it fails and so does every one after it
    unwritable,   ///< from there on nothing can be written, renamed or deleted
    unreadable,   ///< from there on nothing can be read
    vanished,     ///< just before it somebody deletes the file that it is about
    folder_gone,  ///< just before it somebody takes the whole folder away
};

struct FileOperation {
    enum class Kind { find, list, length, read, write, append, remove, rename, make_folder };
    Kind kind;
    std::string name;  ///< of the file, without its folder
    bool failed = false;
};

/// Counts the operations on paths that hold `folder`; the others always work.
class FaultyFiles : public Files {
  public:
    /// `at` counts from 0; below 0 nothing fails. `away` is where a folder that goes is put.
    FaultyFiles(std::string folder, FaultKind kind, int at, std::string away)
        : folder_(std::move(folder)), kind_(kind), at_(at), away_(std::move(away)) {}

    const std::vector<FileOperation>& Operations() const { return operations_; }

    std::string FindFile(const std::string& path) override {
        return Fails(Kind::find, path) ? "" : disk_.FindFile(path);
    }
    std::string FindFolder(const std::string& path) override {
        return Fails(Kind::find, path) ? "" : disk_.FindFolder(path);
    }
    std::vector<std::string> List(const std::string& folder, std::string_view pattern) override {
        if (Fails(Kind::list, folder)) return {};
        return disk_.List(folder, pattern);
    }
    std::optional<std::uint64_t> Length(const std::string& path) override {
        return Fails(Kind::length, path) ? std::nullopt : disk_.Length(path);
    }
    ReadResult Read(const std::string& path) override {
        if (Fails(Kind::read, path)) return {ReadResult::Outcome::failed, ""};
        return disk_.Read(path);
    }
    bool Replace(const std::string& path, std::string_view bytes) override {
        return !Fails(Kind::write, path) && Noted(disk_.Replace(path, bytes));
    }
    bool Append(const std::string& path, std::string_view bytes) override {
        return !Fails(Kind::append, path) && Noted(disk_.Append(path, bytes));
    }
    bool Delete(const std::string& path) override {
        return !Fails(Kind::remove, path) && Noted(disk_.Delete(path));
    }
    bool Rename(const std::string& from, const std::string& to) override {
        return !Fails(Kind::rename, from) && Noted(disk_.Rename(from, to));
    }
    bool MakeFolder(const std::string& path) override {
        return !Fails(Kind::make_folder, path) && Noted(disk_.MakeFolder(path));
    }
    std::string CurrentDirectory() override { return disk_.CurrentDirectory(); }

  private:
    using Kind = FileOperation::Kind;

    bool Fails(Kind kind, const std::string& path) {
        if (path.find(folder_) == std::string::npos) return false;
        const int number = static_cast<int>(operations_.size());
        const bool due = at_ >= 0 && number >= at_;
        operations_.push_back({kind, path.substr(path.rfind('/') + 1), due && Refused(kind)});
        if (number == at_) Act(path);
        return operations_.back().failed;
    }

    bool Refused(Kind kind) const {
        const bool reads =
            kind == Kind::find || kind == Kind::list || kind == Kind::length || kind == Kind::read;
        switch (kind_) {
            case FaultKind::once: return static_cast<int>(operations_.size()) == at_;
            case FaultKind::stuck: return true;
            case FaultKind::unwritable: return !reads;
            case FaultKind::unreadable: return kind == Kind::read;
            case FaultKind::vanished:
            case FaultKind::folder_gone: break;
        }
        return false;
    }

    /// What somebody else does at that moment.
    void Act(const std::string& path) const {
        std::error_code ignored;
        if (kind_ == FaultKind::vanished && std::filesystem::is_regular_file(path, ignored)) {
            std::filesystem::remove(path, ignored);
        }
        if (kind_ != FaultKind::folder_gone) return;
        const std::size_t end = path.find(folder_) + folder_.size();
        std::filesystem::rename(path.substr(0, end), away_, ignored);
    }

    bool Noted(bool worked) {
        if (!operations_.empty() && !worked) operations_.back().failed = true;
        return worked;
    }

    DiskFiles disk_;
    std::string folder_;
    FaultKind kind_;
    int at_;
    std::string away_;
    std::vector<FileOperation> operations_;
};

}  // namespace tamlo
