// The trace of a rehearsal: one line an event, at its virtual time.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "rehearsal/virtual_time.h"

namespace tamlo {

/// Receives finished lines, many at a time, each ending in a line feed.
using TraceSink = std::function<void(std::string_view lines)>;

class Trace {
  public:
    explicit Trace(TraceSink sink) : sink_(std::move(sink)) {}
    ~Trace() { Flush(); }
    Trace(const Trace&) = delete;
    Trace& operator=(const Trace&) = delete;

    /// Writes a line; once the trace is closed, nothing.
    void Write(Ticks now, std::string_view event, std::string_view detail = {});
    /// Hands all lines over to the sink.
    void Flush();
    /// Hands all lines over; nothing is written from now on.
    void Close();

  private:
    TraceSink sink_;
    std::string lines_;
    bool closed_ = false;
};

}  // namespace tamlo
