// What the game asks of the page it runs in. The bodies are page_calls.js, and run on the page's
// thread, a moment after the call has returned.
#pragma once

#include <atomic>
#include <cstdint>

namespace tamlo {

struct SharedRing;

/// One file of a change, as the page reads it from memory.
struct PageFile {
    const char* name = nullptr;
    const char* bytes = nullptr;  ///< null: the file goes
    std::uint32_t size = 0;
};

/// 0 until the page has answered; the thread that asked sleeps on it.
using PageAnswer = std::atomic<std::int32_t>;
inline constexpr std::int32_t answer_yes = 1;

}  // namespace tamlo

extern "C" {

// Texts are made by strdup, and freed by the page.

/// Has the page's worklet read this ring from now on.
void tamlo_page_ring(const tamlo::SharedRing* ring);
void tamlo_page_title(char* text);
/// A line to read: what is spoken, or a caption.
void tamlo_page_line(char* text);
/// Shows a dialog with an OK button. `spoken`: the game speaks the text itself.
void tamlo_page_message(char* text, int spoken, tamlo::PageAnswer* answer);
/// Shows an editor with the player's file; `bytes` is a copy as well.
void tamlo_page_edit(char* name, char* bytes, std::uint32_t size);
/// Makes the changes last. All that is pointed to lives until there is an answer.
void tamlo_page_keep(const tamlo::PageFile* files, int count, tamlo::PageAnswer* answer);
/// The game has ended, for the last time.
void tamlo_page_ended(int exit_status, char* reason, int restart);
}

namespace tamlo {

/// Sleeps until the page has answered.
std::int32_t AwaitAnswer(PageAnswer& answer);

}  // namespace tamlo
