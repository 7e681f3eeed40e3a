#include "web/page/page_mail.h"

#include <cstdlib>
#include <utility>

#include "web/files/folded_wave.h"
#include "web/files/pack.h"

namespace tamlo {

PageMail::~PageMail() {
    for (Letter* letter = letters_.TakeAll(); letter != nullptr;) {
        delete std::exchange(letter, letter->next);
    }
}

void PageMail::SendFile(Owner owner, std::string name, std::string bytes) {
    letters_.Push(new Letter{owner, std::move(name), std::move(bytes)});
}

void PageMail::SendSounds(std::string_view pack) noexcept {
    sounds_ = pack;
    sounds_came_ = true;
    sounds_bell_.Ring();
}

void PageMail::Deliver(KeptFiles& files) {
    for (Letter* next = letters_.TakeAll(); next != nullptr;) {
        std::unique_ptr<Letter> letter(std::exchange(next, next->next));
        if (letter->owner == Owner::player) {
            files.PutPlayers(letter->name, std::move(letter->bytes));
        } else {
            files.PutPrograms(letter->name, letter->bytes);
            programs_.push_back(std::move(letter));
        }
    }
}

void PageMail::AwaitSounds(KeptFiles& files) {
    while (!sounds_came_) sounds_bell_.Sleep();
    ReadPack(sounds_, [this, &files](const std::string& name, std::string_view bytes) {
        sounds_unfolded_.push_back(UnfoldedWave(bytes));
        files.PutPrograms(name, sounds_unfolded_.back());
    });
    std::free(const_cast<char*>(sounds_.data()));
}

}  // namespace tamlo
