// The trace of a rehearsal: one line per event, with its virtual time.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "rehearsal/virtual_time.h"

namespace tamlo {

/// Receives finished lines, several at a time, each ending in a line feed.
using TraceSink = std::function<void(std::string_view lines)>;

class Trace {
  public:
    explicit Trace(TraceSink sink) : sink_(std::move(sink)) {}
    ~Trace() { Flush(); }
    Trace(const Trace&) = delete;
    Trace& operator=(const Trace&) = delete;

    /// Writes a line, unless the trace is closed.
    void Write(Ticks now, std::string_view event, std::string_view detail = {});
    /// Passes all lines to the sink.
    void Flush();
    /// Passes all lines to the sink; nothing is written afterwards.
    void Close();

  private:
    TraceSink sink_;
    std::string lines_;
    bool closed_ = false;
};

}  // namespace tamlo
