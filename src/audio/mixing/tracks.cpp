#include "audio/mixing/tracks.h"

#include <algorithm>

namespace tamlo {
namespace {

// Long enough that a step of the volume or the pitch makes no click, short enough that a movement
// follows its steps.
constexpr int glide_frames = stream_rate / 200;  // 5 ms
// A sound that goes on in mid-wave would click; one that begins at its beginning keeps its attack.
constexpr int start_frames = stream_rate * 3 / 2000;  // 1.5 ms

}  // namespace

void Tracks::Obey(const TrackCommand& command) noexcept {
    Track& track = *command.track;
    Track::State& now = track.now_;
    const bool gliding = now.playing && !now.untouched;
    switch (command.kind) {
        case TrackCommand::Kind::play: Start(track, command.value != 0, command.number); break;
        case TrackCommand::Kind::stop: Silence(now); break;
        case TrackCommand::Kind::remove:
            Silence(now);
            Forget(track);
            break;
        case TrackCommand::Kind::seek:
            if (gliding) AddTail(now.head, tails_.left.data(), tails_.right.data());
            now.untouched = true;
            now.head.SetPosition(command.value);
            track.reached.store(command.value, std::memory_order_relaxed);
            break;
        case TrackCommand::Kind::gains:
            now.gains = command.gains;
            // A sound just started keeps the fade with which it starts.
            if (gliding) now.head.SetGains(now.gains, glide_frames);
            break;
        case TrackCommand::Kind::step:
            now.head.SetStep(command.value, gliding ? glide_frames : 0);
            break;
    }
}

void Tracks::Start(Track& track, bool looping, unsigned number) noexcept {
    if (!track.known_) {
        track.known_ = true;
        track.next_ = first_;
        first_ = &track;
    }
    Track::State& now = track.now_;
    now.head.SetLooping(looping);
    now.play = number;
    if (now.playing) return;
    now.playing = true;
    now.untouched = true;
}

void Tracks::Silence(Track::State& track) noexcept {
    if (track.playing && !track.untouched) {
        AddTail(track.head, tails_.left.data(), tails_.right.data());
    }
    track.playing = false;
}

void Tracks::Forget(Track& track) noexcept {
    Track** link = &first_;
    while (*link != nullptr && *link != &track) link = &(*link)->next_;
    if (*link != nullptr) *link = track.next_;
}

// Takes a copy of the playhead, so that the sound itself may stand still, move or be freed.
void Tracks::AddTail(const Playhead& head, float* left, float* right) const noexcept {
    Playhead tail = head;
    tail.SetGains({}, tail_frames);
    tail.Render(interpolate_, left, right, tail_frames);
}

void Tracks::AddTo(float* stereo, int frames) noexcept {
    std::fill(std::copy(tails_.left.begin(), tails_.left.end(), left_.begin()), left_.end(), 0.0F);
    std::fill(std::copy(tails_.right.begin(), tails_.right.end(), right_.begin()), right_.end(),
              0.0F);
    for (Track* track = first_; track != nullptr; track = track->next_) {
        if (track->now_.playing) Render(track->now_, frames);
    }
    for (int i = 0; i < frames; ++i) {
        stereo[2 * i] += left_[i];
        stereo[2 * i + 1] += right_[i];
    }
    std::copy_n(left_.begin() + frames, tail_frames, tails_.left.begin());
    std::copy_n(right_.begin() + frames, tail_frames, tails_.right.begin());
}

void Tracks::Render(Track::State& track, int frames) noexcept {
    if (track.untouched) {
        const bool mid_wave = track.head.Position() != 0;
        if (mid_wave) track.head.SetGains({}, 0);
        track.head.SetGains(track.gains, mid_wave ? start_frames : 0);
        track.untouched = false;
    }
    const int playable = track.head.FramesLeft(frames);
    track.head.Render(interpolate_, left_.data(), right_.data(), playable);
    if (!track.head.AtEnd()) return;
    // What the interpolation still makes of the last samples fades out after the end.
    AddTail(track.head, left_.data() + playable, right_.data() + playable);
    End(track);
}

void Tracks::Pass(int frames) noexcept {
    for (Track* track = first_; track != nullptr; track = track->next_) {
        if (track->now_.playing) PassOver(track->now_, frames);
    }
    tails_ = {};
}

void Tracks::PassOver(Track::State& track, int frames) noexcept {
    track.head.Pass(track.head.FramesLeft(frames));
    track.untouched = true;
    if (track.head.AtEnd()) End(track);
}

void Tracks::End(Track::State& track) noexcept {
    track.playing = false;
    track.head.SetPosition(0);
    track.ended = track.play;
}

void Tracks::SaveState(int slot) noexcept {
    const auto place = static_cast<std::size_t>(slot);
    saved_[place] = tails_;
    for (Track* track = first_; track != nullptr; track = track->next_) {
        track->saved_[place] = track->now_;
    }
}

void Tracks::RestoreState(int slot) noexcept {
    const auto place = static_cast<std::size_t>(slot);
    tails_ = saved_[place];
    for (Track* track = first_; track != nullptr; track = track->next_) {
        track->now_ = track->saved_[place];
    }
}

void Tracks::Commit(int slot) noexcept {
    for (Track* track = first_; track != nullptr; track = track->next_) {
        const Track::State& state = track->saved_[static_cast<std::size_t>(slot)];
        track->reached.store(state.head.Position() >> fixed_bits, std::memory_order_relaxed);
        track->ended.store(state.ended, std::memory_order_release);
    }
}

}  // namespace tamlo
