#include "rehearsal/trace.h"

namespace tamlo {

namespace {

constexpr std::size_t flush_above = 60'000;

/// Seconds with three decimals.
void AppendTime(std::string& lines, Ticks now) {
    lines += std::to_string(now / ticks_per_second);
    const Ticks part = now % ticks_per_second;
    lines += '.';
    lines += static_cast<char>('0' + part / 10);
    lines += static_cast<char>('0' + part % 10);
    lines += '0';
}

}  // namespace

void Trace::Write(Ticks now, std::string_view event, std::string_view detail) {
    if (closed_) return;
    AppendTime(lines_, now);
    lines_ += ' ';
    lines_ += event;
    if (!detail.empty()) {
        lines_ += ' ';
        lines_ += detail;
    }
    lines_ += '\n';
    if (lines_.size() > flush_above) Flush();
}

void Trace::Flush() {
    if (lines_.empty()) return;
    sink_(lines_);
    lines_.clear();
}

void Trace::Close() {
    Flush();
    closed_ = true;
}

}  // namespace tamlo
