// The mixer's two sides: commands from the game's thread, and the sums made on the audio thread.
#include "audio/mixing/mixer.h"

#include <algorithm>
#include <utility>

namespace tamlo {
namespace {

// Long enough that a step of the volume or the pitch makes no click, short enough that a movement
// follows its steps.
constexpr int glide_frames = stream_rate / 200;  // 5 ms
// A sound that goes on in mid-wave would click; one that begins at its beginning keeps its attack.
constexpr int start_frames = stream_rate * 3 / 2000;  // 1.5 ms

}  // namespace

Mixer::Mixer(Instructions instructions, std::shared_ptr<ChangeBell> changes)
    : interpolate_(SelectInterpolator(instructions)), changes_(std::move(changes)) {}

Mixer::~Mixer() {
    Free(commands_.TakeAll());
    Free(spent_.TakeAll());
}

void Mixer::Attach(Source& source) {
    const std::lock_guard lock(sources_mutex_);
    sources_.push_back(&source);
    source.RingOnChange(changes_.get());
}

void Mixer::Detach(Source& source) {
    source.RingOnChange(nullptr);
    const std::lock_guard lock(sources_mutex_);
    std::erase(sources_, &source);
}

Track& Mixer::Add(std::shared_ptr<const WaveData> wave) {
    // Unowned until Remove: the audio thread knows the sound by then.
    return *std::make_unique<Track>(std::move(wave)).release();
}

void Mixer::Remove(Track& sound) {
    Send(std::make_unique<Command>(Command{.kind = Command::Kind::remove,
                                           .sound = &sound,
                                           .removed = std::unique_ptr<Track>(&sound)}));
}

void Mixer::Play(Track& sound, PlayMode mode, unsigned number) {
    Send(std::make_unique<Command>(Command{.kind = Command::Kind::play,
                                           .sound = &sound,
                                           .value = mode == PlayMode::looping,
                                           .number = number}));
}

void Mixer::Stop(Track& sound) {
    Send(std::make_unique<Command>(Command{.kind = Command::Kind::stop, .sound = &sound}));
}

void Mixer::Seek(Track& sound, std::int64_t frame) {
    Send(std::make_unique<Command>(
        Command{.kind = Command::Kind::seek, .sound = &sound, .value = frame}));
}

void Mixer::SetGains(Track& sound, Gains gains) {
    Send(std::make_unique<Command>(
        Command{.kind = Command::Kind::gains, .sound = &sound, .gains = gains}));
}

void Mixer::SetFrequency(Track& sound, int frequency) {
    Send(std::make_unique<Command>(
        Command{.kind = Command::Kind::step, .sound = &sound, .value = StepFor(frequency)}));
}

void Mixer::Send(std::unique_ptr<Command> command) {
    Free(spent_.TakeAll());
    commands_.Push(command.release());
    if (changes_ != nullptr) changes_->Ring();
}

void Mixer::Free(Command* list) {
    while (list != nullptr) {
        const std::unique_ptr<Command> command(list);
        list = command->next;
    }
}

void Mixer::Mix(float* stereo, int frames, bool heard) noexcept {
    // Attaching is rare; should it be under way, the sources miss this one block.
    const std::unique_lock lock(sources_mutex_, std::try_to_lock);
    const Sources sources = lock ? Sources(sources_) : Sources();
    TakeBack(sources, MarkAt(first_mark_).frame);
    Obey();
    for (Source* source : sources) source->Heed(heard);
    for (int done = 0; done < frames;) {
        const int piece = std::min(frames - done, longest_piece);
        Render(sources, stereo + 2 * done, piece);
        done += piece;
    }
    Remember(sources);
    SettleUpTo(sources, frame_);
}

void Mixer::Pass(int frames) noexcept {
    const std::unique_lock lock(sources_mutex_, std::try_to_lock);
    const Sources sources = lock ? Sources(sources_) : Sources();
    TakeBack(sources, MarkAt(first_mark_).frame);
    Obey();
    for (Source* source : sources) source->Heed(false);
    for (int left = frames; left > 0; left -= longest_piece) {
        std::array<float, 2 * longest_piece> unheard{};
        AddSources(sources, unheard.data(), std::min(left, longest_piece));
    }
    for (Track* track = tracks_; track != nullptr; track = track->next_) {
        if (track->now_.playing) PassOver(track->now_, frames);
    }
    left_ = {};
    right_ = {};
    limiter_ = {};
    frame_ += frames;
    Remember(sources);
    SettleUpTo(sources, frame_);
}

// What sources have got since the mark before is for the frames behind it, so it is remembered
// anew.
bool Mixer::MixAhead(float* stereo, int frames, bool heard) noexcept {
    const std::unique_lock lock(sources_mutex_, std::try_to_lock);
    if (!lock) return false;
    for (int done = 0; done < frames; done += longest_piece) {
        for (Source* source : sources_) {
            source->Heed(heard);
            source->Remember(static_cast<int>(Slot(last_mark_)));
        }
        Render(sources_, stereo + 2 * done, longest_piece);
        Remember(sources_);
    }
    return true;
}

int Mixer::Settle(int ahead) noexcept {
    const std::unique_lock lock(sources_mutex_, std::try_to_lock);
    return lock ? SettleUpTo(sources_, frame_ - ahead) : 0;
}

std::optional<int> Mixer::Rewind(int ahead) noexcept {
    const std::unique_lock lock(sources_mutex_, std::try_to_lock);
    if (!lock) return std::nullopt;
    const std::int64_t end = frame_;
    TakeBack(sources_, end - ahead);
    Obey();
    for (Source* source : sources_) source->Heed(true);
    Remember(sources_);
    return static_cast<int>(end - frame_);
}

/// Back to the frame, or the first behind it that may still change. From a mark to the frame
/// everything is made once more, and is what it was.
void Mixer::TakeBack(Sources sources, std::int64_t frame) noexcept {
    const std::int64_t target =
        std::min(frame_, std::max({frame, obeyed_at_, MarkAt(first_mark_).frame}));
    std::int64_t mark = last_mark_;
    while (MarkAt(mark).frame > target) --mark;
    if (mark != last_mark_) ReturnTo(sources, mark);
    last_mark_ = mark;
    while (frame_ < target) {
        std::array<float, 2 * longest_piece> again;
        Render(sources, again.data(),
               static_cast<int>(std::min<std::int64_t>(target - frame_, longest_piece)));
    }
}

void Mixer::Remember(Sources sources) noexcept {
    if (MarkAt(last_mark_).frame != frame_) {
        ++last_mark_;
        if (last_mark_ - first_mark_ == most_marks) ++first_mark_;
    }
    const auto slot = static_cast<int>(Slot(last_mark_));
    Mark& mark = MarkAt(last_mark_);
    mark.frame = frame_;
    std::copy_n(left_.begin(), tail_frames, mark.left.begin());
    std::copy_n(right_.begin(), tail_frames, mark.right.begin());
    mark.limiter = limiter_;
    mark.quiet = quiet_since_;
    for (Track* track = tracks_; track != nullptr; track = track->next_) {
        track->marks_[slot] = track->now_;
    }
    for (Source* source : sources) source->Remember(slot);
}

void Mixer::ReturnTo(Sources sources, std::int64_t number) noexcept {
    const auto slot = static_cast<int>(Slot(number));
    const Mark& mark = MarkAt(number);
    frame_ = mark.frame;
    std::copy_n(mark.left.begin(), tail_frames, left_.begin());
    std::copy_n(mark.right.begin(), tail_frames, right_.begin());
    limiter_ = mark.limiter;
    quiet_since_ = mark.quiet;
    for (Track* track = tracks_; track != nullptr; track = track->next_) {
        track->now_ = track->marks_[slot];
    }
    for (Source* source : sources) source->ReturnTo(slot);
}

int Mixer::SettleUpTo(Sources sources, std::int64_t frame) noexcept {
    while (first_mark_ < last_mark_ && MarkAt(first_mark_ + 1).frame <= frame) ++first_mark_;
    const auto frames = static_cast<int>(MarkAt(first_mark_).frame - settled_);
    if (frames == 0) return 0;
    settled_ += frames;
    const auto slot = static_cast<int>(Slot(first_mark_));
    for (Track* track = tracks_; track != nullptr; track = track->next_) {
        const Track::State& state = track->marks_[slot];
        track->reached.store(state.head.Position() >> fixed_bits, std::memory_order_relaxed);
        track->ended.store(state.ended, std::memory_order_release);
    }
    quiet_.store(MarkAt(first_mark_).quiet, std::memory_order_relaxed);
    for (Source* source : sources) source->Settle(slot, frames);
    return frames;
}

void Mixer::Obey() noexcept {
    Command* command = commands_.TakeAll();
    while (command != nullptr) {
        Command* next = command->next;
        Obey(*command);
        spent_.Push(command);
        command = next;
    }
    obeyed_at_ = frame_;
}

void Mixer::Obey(const Command& command) noexcept {
    Track& track = *command.sound;
    Track::State& sound = track.now_;
    const bool gliding = sound.playing && !sound.untouched;
    switch (command.kind) {
        case Command::Kind::play: Start(track, command.value != 0, command.number); break;
        case Command::Kind::stop: Silence(sound); break;
        case Command::Kind::remove:
            Silence(sound);
            Forget(track);
            break;
        case Command::Kind::seek:
            if (gliding) AddTail(sound.head, 0);
            sound.untouched = true;
            sound.head.SetPosition(command.value);
            track.reached.store(command.value, std::memory_order_relaxed);
            break;
        case Command::Kind::gains:
            sound.gains = command.gains;
            // A sound just started keeps the fade with which it starts.
            if (gliding) sound.head.SetGains(sound.gains, glide_frames);
            break;
        case Command::Kind::step:
            sound.head.SetStep(command.value, gliding ? glide_frames : 0);
            break;
    }
}

void Mixer::Start(Track& track, bool looping, unsigned number) noexcept {
    if (!track.known_) {
        track.known_ = true;
        track.next_ = tracks_;
        tracks_ = &track;
    }
    Track::State& sound = track.now_;
    sound.head.SetLooping(looping);
    sound.play = number;
    if (sound.playing) return;
    sound.playing = true;
    sound.untouched = true;
}

void Mixer::Silence(Track::State& sound) noexcept {
    if (sound.playing && !sound.untouched) AddTail(sound.head, 0);
    sound.playing = false;
}

void Mixer::Forget(Track& track) noexcept {
    Track** link = &tracks_;
    while (*link != nullptr && *link != &track) link = &(*link)->next_;
    if (*link != nullptr) *link = track.next_;
}

// Takes a copy of the playhead, so that the sound itself may stand still, move or be freed.
void Mixer::AddTail(const Playhead& head, int from) noexcept {
    Playhead tail = head;
    tail.SetGains({}, tail_frames);
    tail.Render(interpolate_, left_.data() + from, right_.data() + from, tail_frames);
}

void Mixer::Render(Sources sources, float* stereo, int frames) noexcept {
    std::fill_n(stereo, 2 * frames, 0.0F);
    AddSources(sources, stereo, frames);
    for (Track* track = tracks_; track != nullptr; track = track->next_) {
        if (track->now_.playing) MixSound(track->now_, frames);
    }
    for (int i = 0; i < frames; ++i) {
        stereo[2 * i] += left_[i];
        stereo[2 * i + 1] += right_[i];
    }
    for (auto* sums : {&left_, &right_}) {
        std::copy(sums->begin() + frames, sums->end(), sums->begin());
        std::fill(sums->end() - frames, sums->end(), 0.0F);
    }
    limiter_.Process(stereo, frames);
    frame_ += frames;
}

void Mixer::MixSound(Track::State& sound, int frames) noexcept {
    if (sound.untouched) {
        const bool mid_wave = sound.head.Position() != 0;
        if (mid_wave) sound.head.SetGains({}, 0);
        sound.head.SetGains(sound.gains, mid_wave ? start_frames : 0);
        sound.untouched = false;
    }
    const int playable = sound.head.FramesLeft(frames);
    sound.head.Render(interpolate_, left_.data(), right_.data(), playable);
    if (!sound.head.AtEnd()) return;
    // What the interpolation still makes of the last samples fades out behind the end.
    AddTail(sound.head, playable);
    End(sound);
}

void Mixer::PassOver(Track::State& sound, int frames) noexcept {
    sound.head.Pass(sound.head.FramesLeft(frames));
    sound.untouched = true;
    if (sound.head.AtEnd()) End(sound);
}

void Mixer::End(Track::State& sound) noexcept {
    sound.playing = false;
    sound.head.SetPosition(0);
    sound.ended = sound.play;
}

void Mixer::AddSources(Sources sources, float* stereo, int frames) noexcept {
    for (Source* source : sources) source->AddTo(stereo, frames);
    const bool sounding = std::any_of(stereo, stereo + 2 * frames, [](float s) { return s != 0; });
    quiet_since_ = sounding ? 0 : quiet_since_ + frames;
}

}  // namespace tamlo
