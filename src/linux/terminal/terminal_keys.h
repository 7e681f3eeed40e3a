// What a terminal sends for its keys, turned into virtual-key codes, a few event turns apart.
#pragma once

#include <chrono>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace tamlo {

/// Whether the gaps between bytes tell anything. A player cannot press a key within 40 ms of
/// Escape, so such a pair is that key with Alt held, and counts as the key; in a file or a pipe
/// it can only be Escape and then the key.
enum class Gaps { kept, lost };

/// Decodes keys as xterm, rxvt, the text console and their kin send them. Shift, Control and Alt
/// held with a special key are ignored; control characters without a key of their own and
/// characters outside ASCII are too. A capital or a shifted sign (of the US layout) is the Shift
/// key and then the key.
class TerminalKeys {
  public:
    using Time = std::chrono::microseconds;

    /// How long the rest of an escape sequence may take.
    static constexpr Time sequence_time{40000};
    /// A key comes no sooner than this many turns after the one before: in the very next turns,
    /// in which the game clears the pending key, it would lose its character. Two digits that a
    /// busy machine reads at once are still two digits.
    static constexpr int turns_between_keys = 3;

    explicit TerminalKeys(Gaps gaps) : gaps_(gaps) {}

    /// Bytes that came at `now`, a time on any steady clock.
    void Feed(std::string_view bytes, Time now);
    /// A key that has come in another way, after those that wait.
    void Press(int code);
    /// Until the next turn, keys come together: of those the last remains, as of several that a
    /// window hands over in one turn, and that turn brings it unless keys waited before.
    void ComeTogether() { together_ = true; }
    bool Together() const { return together_; }
    /// Decides about an unfinished sequence whose time is over: most often it is a lone Escape.
    void Settle(Time now);
    /// Decides about it at once, because nothing can follow.
    void Finish() { Resolve(); }

    /// To be called once in every event turn: the key for this turn, if any.
    std::optional<int> Take();

    /// Whether a key waits to be taken, in this turn or one of the next.
    bool Waiting() const { return !keys_.empty(); }
    /// When Settle will have something to decide, if nothing comes before.
    std::optional<Time> Deadline() const;

  private:
    void FeedByte(char byte);
    void Continue(char byte);
    void Type(char byte);
    void Resolve();

    Gaps gaps_;
    std::string pending_;  ///< an unfinished sequence, from its Escape on
    Time pending_since_{};
    char last_ = '\0';
    std::deque<int> keys_;
    int turns_to_wait_ = 0;
    bool together_ = false;
    bool one_came_ = false;  ///< of those that come together
};

}  // namespace tamlo
