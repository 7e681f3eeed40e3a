#include "audio/voice/speech_stream.h"

#include <algorithm>

namespace tamlo {
namespace {

/// A change of volume from one end of the range to the other takes 10 ms.
constexpr float gain_step = 100.0F / static_cast<float>(stream_rate);

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

void SpeechStream::Publish() noexcept {
    written_.store(put_);
    if (starving_) RingChange();
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
    const bool sounding = Left() > 0;
    dropped_.store(written_.load(std::memory_order_relaxed), std::memory_order_release);
    if (sounding) RingChange();
}

void SpeechStream::SetGain(float gain) noexcept {
    if (gain_target_.exchange(gain, std::memory_order_relaxed) != gain && Left() > 0) RingChange();
}

void SpeechStream::RingChange() noexcept {
    if (ChangeBell* bell = changed_; bell != nullptr) bell->Ring();
}

int SpeechStream::Left() const noexcept {
    // `taken` first: it may pass the others only after they have grown.
    std::uint64_t taken = taken_.load(std::memory_order_acquire);
    std::uint64_t gone = std::max(taken, dropped_.load(std::memory_order_acquire));
    std::uint64_t written = written_.load(std::memory_order_acquire);
    return written > gone ? static_cast<int>(written - gone) : 0;
}

void SpeechStream::BeginBlock(bool heard) noexcept {
    if (heard && unheard_) {
        returned_ = true;
        woken.Ring();
    }
    unheard_ = !heard;
    now_.returned = returned_;
    const std::uint64_t dropped = dropped_.load(std::memory_order_acquire);
    now_.gain_target = gain_target_.load(std::memory_order_relaxed);
    const bool idle = now_.taken == now_.written;
    if (idle) now_.gain = now_.gain_target;
    now_.written = written_.load(std::memory_order_acquire);
    if (now_.taken >= dropped) return;
    if (!idle) KeepTail(dropped);
    now_.taken = dropped;
}

void SpeechStream::AddTo(float* stereo, int frames) noexcept {
    if (now_.tail_left > 0) AddTail(stereo, frames);
    const auto left = now_.returned ? 0 : now_.written - now_.taken;
    AddSamples(stereo, static_cast<int>(std::min<std::uint64_t>(left, frames)));
}

void SpeechStream::SaveState(int slot) noexcept {
    saved_[static_cast<std::size_t>(slot)] = now_;
    const bool starving = now_.taken == now_.written;
    starving_ = starving;
    // More may have been written just before.
    if (starving && written_ != now_.written) RingChange();
}

void SpeechStream::Commit(int slot, int frames) noexcept {
    const std::uint64_t taken = saved_[static_cast<std::size_t>(slot)].taken;
    const bool any = taken != taken_.exchange(taken);
    NoteHeard(frames);
    const std::uint64_t written = written_.load(std::memory_order_acquire);
    if (any && taken == written) ended.Ring();
    const int ring_at = ring_at_.load();
    const bool low = written - taken <= static_cast<std::uint64_t>(std::max(ring_at, 0));
    if (ring_at >= 0 && low && ring_at_.exchange(-1) >= 0) woken.Ring();
}

void SpeechStream::NoteHeard(int frames) noexcept {
    if (unheard_ || returned_) {
        next_heard_ = heard_up_to_;
        frames_since_ = 0;
        return;
    }
    frames_since_ += frames;
    if (frames_since_ < doubtful) return;
    heard_up_to_ = next_heard_;
    next_heard_ = taken_;
    frames_since_ = 0;
}

void SpeechStream::KeepTail(std::uint64_t to) noexcept {
    std::array<float, tail_frames> tail{};
    // A tail still sounding goes on below the new one.
    std::copy(now_.tail.end() - now_.tail_left, now_.tail.end(), tail.begin());
    const auto count = static_cast<int>(std::min<std::uint64_t>(to - now_.taken, tail_frames));
    for (int i = 0; i < count; ++i) {
        float fade = 1.0F - static_cast<float>(i + 1) / static_cast<float>(tail_frames + 1);
        tail[static_cast<std::size_t>(i)] +=
            ring_[Slot(now_.taken + static_cast<std::uint64_t>(i))] * now_.gain * fade;
    }
    now_.tail = tail;
    now_.tail_left = tail_frames;
    now_.gain = now_.gain_target;
}

void SpeechStream::AddTail(float* stereo, int frames) noexcept {
    int count = std::min(frames, now_.tail_left);
    const float* sample = now_.tail.data() + (tail_frames - now_.tail_left);
    for (int i = 0; i < count; ++i) {
        *stereo++ += sample[i];
        *stereo++ += sample[i];
    }
    now_.tail_left -= count;
}

void SpeechStream::AddSamples(float* stereo, int frames) noexcept {
    float gain = now_.gain;
    for (int i = 0; i < frames; ++i) {
        gain = gain < now_.gain_target ? std::min(gain + gain_step, now_.gain_target)
                                       : std::max(gain - gain_step, now_.gain_target);
        float sample = ring_[Slot(now_.taken++)] * gain;
        *stereo++ += sample;
        *stereo++ += sample;
    }
    now_.gain = gain;
}

}  // namespace tamlo
