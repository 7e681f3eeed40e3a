// The player's files in a browser: a copy in memory, of which every change is kept before the game
// goes on.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "services/files.h"

namespace tamlo {

/// Where changes are made to last: all of one change or none of it.
class Keeper {
  public:
    struct Change {
        std::string name;                       ///< of a file in the player's folder
        std::optional<std::string_view> bytes;  ///< its whole content; nothing: it goes
    };
    virtual ~Keeper() = default;
    /// Returns once the changes are safe; false if they could not be made.
    virtual bool Keep(const std::vector<Change>& changes) = 0;
};

/// Two folders: the player's, and the program's with the sounds, which nobody writes to. Documents,
/// in which the player's folder lies, is empty otherwise. For the game's thread.
class KeptFiles final : public Files {
  public:
    /// Names as they are used in paths, absolute, without a '/' at the end.
    struct Folders {
        std::string player;   ///< its parent exists as well
        std::string program;  ///< the current directory
    };
    /// `keeper` must outlive this object.
    KeptFiles(Folders folders, Keeper& keeper);

    /// A file that is there already. `name` is that of a file in the player's folder.
    void PutPlayers(const std::string& name, std::string bytes);
    /// A file of the program's, whose bytes must live as long as this object.
    void PutPrograms(const std::string& name, std::string_view bytes);
    /// `arrive` is called before the first look for a file of the program's that is not there yet.
    void LetArrive(std::function<void()> arrive) { arrive_ = std::move(arrive); }
    /// A file that is gone without this object's doing.
    void TakePlayers(const std::string& name);
    /// The content of a file of the program's; nothing if there is none.
    std::optional<std::string_view> Programs(const std::string& name);

    std::string FindFile(const std::string& path) override;
    std::string FindFolder(const std::string& path) override;
    std::vector<std::string> List(const std::string& folder, std::string_view pattern) override;
    std::optional<std::uint64_t> Length(const std::string& path) override;
    ReadResult Read(const std::string& path) override;
    bool Replace(const std::string& path, std::string_view bytes) override;
    bool Append(const std::string& path, std::string_view bytes) override;
    bool Delete(const std::string& path) override;
    bool Rename(const std::string& from, const std::string& to) override;
    bool MakeFolder(const std::string& path) override;
    std::string CurrentDirectory() override { return folders_.program; }

  private:
    /// A path, taken apart: the folder as it is written here, and the last name.
    struct Place {
        std::string folder;
        std::string name;
    };
    void Arrive();
    Place Parse(const std::string& path) const;
    bool IsPlayers(const Place& place) const { return place.folder == folders_.player; }
    /// The file's name as it stands; empty if there is none.
    std::string NameOf(const Place& place);
    std::string_view BytesOf(const Place& place, const std::string& name) const;

    Folders folders_;
    Keeper& keeper_;
    std::function<void()> arrive_;
    std::map<std::string, std::string> players_;
    std::map<std::string, std::string_view> programs_;
};

}  // namespace tamlo
