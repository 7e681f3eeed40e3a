#include "platform/voice/speech_stream.h"

#include <algorithm>

namespace tamlo {
namespace {

/// A change of volume from one end of the range to the other takes 10 ms.
constexpr float gain_step = 100.0f / static_cast<float>(stream_rate);

/// What a card took just before it went may never have been heard: servers hold some of it, and the
/// going is noticed late.
constexpr int doubtful = stream_rate / 4;

std::size_t Slot(std::uint64_t position) {
    return static_cast<std::size_t>(position % SpeechStream::capacity);
}

}  // namespace

SpeechStream::SpeechStream() : ring_(capacity) {}

int SpeechStream::Room() const noexcept {
    std::uint64_t taken = taken_.load(std::memory_order_acquire);
    std::uint64_t gone = std::max(taken, dropped_.load(std::memory_order_acquire));
    // What was dropped but not yet passed over is still needed for the tail.
    return std::min(most_ahead - static_cast<int>(put_ - gone),
                    capacity - static_cast<int>(put_ - taken));
}

void SpeechStream::Put(std::span<const float> samples) noexcept {
    for (float sample : samples) ring_[Slot(put_++)] = sample;
}

void SpeechStream::Commit() noexcept {
    written_.store(put_, std::memory_order_release);
}

void SpeechStream::Retract() noexcept {
    put_ = written_.load(std::memory_order_relaxed);
}

void SpeechStream::RingWhenDownTo(int frames) noexcept {
    ring_at_.store(frames);
    // They may have been taken just before.
    std::uint64_t untaken = written_.load() - taken_.load();
    if (untaken <= static_cast<std::uint64_t>(frames) && ring_at_.exchange(-1) >= 0) woken.Ring();
}

void SpeechStream::Drop() noexcept {
    dropped_.store(written_.load(std::memory_order_relaxed), std::memory_order_release);
}

int SpeechStream::Left() const noexcept {
    // `taken` first: it may pass the others only after they have grown.
    std::uint64_t taken = taken_.load(std::memory_order_acquire);
    std::uint64_t gone = std::max(taken, dropped_.load(std::memory_order_acquire));
    std::uint64_t written = written_.load(std::memory_order_acquire);
    return written > gone ? static_cast<int>(written - gone) : 0;
}

void SpeechStream::AddTo(float* stereo, int frames, bool heard) noexcept {
    std::uint64_t taken = taken_.load(std::memory_order_relaxed);
    NoteWhetherHeard(heard, frames);
    std::uint64_t dropped = dropped_.load(std::memory_order_acquire);
    if (taken < dropped) taken = KeepTail(taken, dropped);
    if (tail_left_ > 0) AddTail(stereo, frames);

    std::uint64_t written = written_.load(std::memory_order_acquire);
    int count = returned_ ? 0 : static_cast<int>(std::min<std::uint64_t>(written - taken, frames));
    if (idle_) gain_ = gain_target_.load(std::memory_order_relaxed);
    if (count > 0) AddSamples(stereo, count, taken);
    taken += static_cast<std::uint64_t>(count);
    taken_.store(taken);

    idle_ = taken == written;
    if (count > 0 && idle_) ended.Ring();
    int ring_at = ring_at_.load();
    bool low = written - taken <= static_cast<std::uint64_t>(std::max(ring_at, 0));
    if (ring_at >= 0 && low && ring_at_.exchange(-1) >= 0) woken.Ring();
}

void SpeechStream::NoteWhetherHeard(bool heard, int frames) noexcept {
    if (heard && unheard_) {
        returned_ = true;
        woken.Ring();
    }
    unheard_ = !heard;
    if (unheard_ || returned_) {
        mark_ = heard_up_to_;
        since_mark_ = 0;
        return;
    }
    since_mark_ += frames;
    if (since_mark_ < doubtful) return;
    heard_up_to_ = mark_;
    mark_ = taken_;
    since_mark_ = 0;
}

std::uint64_t SpeechStream::KeepTail(std::uint64_t from, std::uint64_t to) noexcept {
    std::array<float, tail_frames> tail{};
    // A tail still sounding goes on below the new one.
    std::copy(tail_.end() - tail_left_, tail_.end(), tail.begin());
    int count = static_cast<int>(std::min<std::uint64_t>(to - from, tail_frames));
    for (int i = 0; i < count; ++i) {
        float fade = 1.0f - static_cast<float>(i + 1) / static_cast<float>(tail_frames + 1);
        tail[static_cast<std::size_t>(i)] +=
            ring_[Slot(from + static_cast<std::uint64_t>(i))] * gain_ * fade;
    }
    tail_ = tail;
    tail_left_ = tail_frames;
    gain_ = gain_target_.load(std::memory_order_relaxed);
    return to;
}

void SpeechStream::AddTail(float* stereo, int frames) noexcept {
    int count = std::min(frames, tail_left_);
    const float* sample = tail_.data() + (tail_frames - tail_left_);
    for (int i = 0; i < count; ++i) {
        *stereo++ += sample[i];
        *stereo++ += sample[i];
    }
    tail_left_ -= count;
}

void SpeechStream::AddSamples(float* stereo, int frames, std::uint64_t from) noexcept {
    const float target = gain_target_.load(std::memory_order_relaxed);
    for (int i = 0; i < frames; ++i) {
        gain_ = gain_ < target ? std::min(gain_ + gain_step, target)
                               : std::max(gain_ - gain_step, target);
        float sample = ring_[Slot(from + static_cast<std::uint64_t>(i))] * gain_;
        *stereo++ += sample;
        *stereo++ += sample;
    }
}

}  // namespace tamlo
