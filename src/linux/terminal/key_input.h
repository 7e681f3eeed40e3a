// Key bytes read from a descriptor as they come.
#pragma once

#include <optional>

#include "linux/system/descriptor.h"
#include "linux/terminal/signal_watch.h"
#include "linux/terminal/terminal_keys.h"
#include "services/clock.h"

namespace tamlo {

class KeyInput {
  public:
    /// Reads `descriptor`; `clock` and `signals` must outlive this object.
    KeyInput(int descriptor, Gaps gaps, const Clock& clock, SignalWatch& signals);

    /// Sleeps until a key waits to be taken, the input has ended, a signal has come or `seconds`
    /// have passed. Bytes that have come are read even if `seconds` is 0.
    void Await(double seconds);

    /// Reads what has come during a wait that is no turn: these keys come together.
    void TakeNote();
    /// To be called once in every event turn: the key for this turn, if any.
    std::optional<int> Take() { return keys_.Take(); }
    bool Waiting() const { return keys_.Waiting(); }
    /// A key from elsewhere, a virtual-key code below 256. Any thread may press it, and never
    /// waits.
    void Press(int code);
    /// Whether everything has been read that will ever come; keys may still be waiting.
    bool Ended() const { return ended_; }
    /// Whether the other side is gone, even if its last bytes have not been read.
    bool HungUp() const;

  private:
    void ReadAll();
    bool SleepOnce(TerminalKeys::Time longest);
    void Read();
    void TakePressed();

    int descriptor_;
    Gaps gaps_;
    const Clock& clock_;
    SignalWatch& signals_;
    Descriptor pressed_;  ///< a byte for each key from elsewhere
    Descriptor presser_;
    TerminalKeys keys_;
    bool ended_ = false;
};

}  // namespace tamlo
