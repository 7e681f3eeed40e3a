// The files that the page sends the game: the player's and the title before it begins, the sounds
// when they have come, a city file whenever the player saves one in the page's editor.
#pragma once

#include <atomic>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "audio/mixing/handover.h"
#include "services/wakeup.h"
#include "web/files/kept_files.h"

namespace tamlo {

class PageMail {
  public:
    enum class Owner { program, player };

    PageMail() = default;
    ~PageMail();
    PageMail(const PageMail&) = delete;
    PageMail& operator=(const PageMail&) = delete;

    // On the page's thread; these never wait.

    void SendFile(Owner owner, std::string name, std::string bytes);
    /// A pack (see ReadPack) with the program's sounds that are still missing, folded; allocated by
    /// malloc.
    void SendSounds(std::string_view pack) noexcept;

    // On the game's thread.

    /// Puts what has come into its place.
    void Deliver(KeptFiles& files);
    /// Waits until the sounds have come, and puts them into their place.
    void AwaitSounds(KeptFiles& files);

  private:
    struct Letter {
        Owner owner = Owner::program;
        std::string name;
        std::string bytes;
        Letter* next = nullptr;
    };

    Handover<Letter> letters_;
    std::vector<std::unique_ptr<Letter>> programs_;  ///< whose bytes are in use
    std::string_view sounds_;
    std::deque<std::string> sounds_unfolded_;
    std::atomic<bool> sounds_came_{false};
    Wakeup sounds_bell_;
};

}  // namespace tamlo
