// The mixer's two sides: commands from the game's thread, and the sums made on the audio thread.
#include "platform/mixing/mixer.h"

#include <algorithm>

namespace tamlo {
namespace {

// Long enough that a step of the volume or the pitch makes no click, short enough that a movement
// follows its steps.
constexpr int glide_frames = stream_rate / 200;  // 5 ms
// A sound that goes on in mid-wave would click; one that begins at its beginning keeps its attack.
constexpr int start_frames = stream_rate * 3 / 2000;  // 1.5 ms

}  // namespace

Mixer::Mixer(Instructions instructions) : interpolate_(SelectInterpolator(instructions)) {}

Mixer::~Mixer() {
    Free(commands_.TakeAll());
    Free(spent_.TakeAll());
}

void Mixer::Attach(Source& source) {
    const std::lock_guard lock(sources_mutex_);
    sources_.push_back(&source);
}

void Mixer::Detach(Source& source) {
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
}

void Mixer::Free(Command* list) {
    while (list != nullptr) {
        const std::unique_ptr<Command> command(list);
        list = command->next;
    }
}

void Mixer::Mix(float* stereo, int frames, bool heard) noexcept {
    Obey();
    // Attaching is rare; should it be under way, the sources miss this one block.
    const std::unique_lock lock(sources_mutex_, std::try_to_lock);
    while (frames > 0) {
        const int piece = std::min(frames, longest_piece);
        std::fill_n(stereo, 2 * piece, 0.0F);
        if (lock) AddSources(stereo, piece, heard);
        MixPiece(stereo, piece);
        stereo += 2 * piece;
        frames -= piece;
    }
    NoteProgress();
}

void Mixer::Pass(int frames) noexcept {
    Obey();
    const std::unique_lock lock(sources_mutex_, std::try_to_lock);
    for (int left = lock ? frames : 0; left > 0; left -= longest_piece) {
        std::array<float, 2 * longest_piece> unheard{};
        AddSources(unheard.data(), std::min(left, longest_piece), false);
    }
    Track* next = nullptr;
    for (Track* sound = playing_; sound != nullptr; sound = next) {
        next = sound->next_;
        PassOver(*sound, frames);
    }
    left_ = {};
    right_ = {};
    limiter_ = {};
    NoteProgress();
}

void Mixer::NoteProgress() noexcept {
    for (Track* sound = playing_; sound != nullptr; sound = sound->next_) {
        sound->reached.store(sound->head_.Position() >> fixed_bits, std::memory_order_relaxed);
    }
}

void Mixer::Obey() noexcept {
    Command* command = commands_.TakeAll();
    while (command != nullptr) {
        Command* next = command->next;
        Obey(*command);
        spent_.Push(command);
        command = next;
    }
}

void Mixer::Obey(const Command& command) noexcept {
    Track& sound = *command.sound;
    const bool gliding = sound.playing_ && !sound.untouched_;
    switch (command.kind) {
        case Command::Kind::play: Start(sound, command.value != 0, command.number); break;
        case Command::Kind::stop:
        case Command::Kind::remove: Silence(sound); break;
        case Command::Kind::seek:
            if (gliding) AddTail(sound.head_, 0);
            sound.untouched_ = true;
            sound.head_.SetPosition(command.value);
            sound.reached.store(command.value, std::memory_order_relaxed);
            break;
        case Command::Kind::gains:
            sound.gains_ = command.gains;
            // A sound just started keeps the fade with which it starts.
            if (gliding) sound.head_.SetGains(sound.gains_, glide_frames);
            break;
        case Command::Kind::step:
            sound.head_.SetStep(command.value, gliding ? glide_frames : 0);
            break;
    }
}

void Mixer::Start(Track& sound, bool looping, unsigned number) noexcept {
    sound.head_.SetLooping(looping);
    sound.play_ = number;
    if (sound.playing_) return;
    sound.playing_ = true;
    sound.untouched_ = true;
    sound.next_ = playing_;
    playing_ = &sound;
}

void Mixer::Silence(Track& sound) noexcept {
    if (!sound.playing_) return;
    if (!sound.untouched_) AddTail(sound.head_, 0);
    TakeOut(sound);
}

void Mixer::TakeOut(Track& sound) noexcept {
    sound.playing_ = false;
    Track** link = &playing_;
    while (*link != &sound) link = &(*link)->next_;
    *link = sound.next_;
}

// Takes a copy of the playhead, so that the sound itself may stand still, move or be freed.
void Mixer::AddTail(const Playhead& head, int from) noexcept {
    Playhead tail = head;
    tail.SetGains({}, tail_frames);
    tail.Render(interpolate_, left_.data() + from, right_.data() + from, tail_frames);
}

void Mixer::MixPiece(float* stereo, int frames) noexcept {
    Track* next = nullptr;
    for (Track* sound = playing_; sound != nullptr; sound = next) {
        next = sound->next_;
        MixSound(*sound, frames);
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
}

void Mixer::MixSound(Track& sound, int frames) noexcept {
    if (sound.untouched_) {
        const bool mid_wave = sound.head_.Position() != 0;
        if (mid_wave) sound.head_.SetGains({}, 0);
        sound.head_.SetGains(sound.gains_, mid_wave ? start_frames : 0);
        sound.untouched_ = false;
    }
    const int playable = sound.head_.FramesLeft(frames);
    sound.head_.Render(interpolate_, left_.data(), right_.data(), playable);
    if (!sound.head_.AtEnd()) return;
    // What the interpolation still makes of the last samples fades out behind the end.
    AddTail(sound.head_, playable);
    End(sound);
}

void Mixer::PassOver(Track& sound, int frames) noexcept {
    sound.head_.Pass(sound.head_.FramesLeft(frames));
    sound.untouched_ = true;
    if (sound.head_.AtEnd()) End(sound);
}

void Mixer::End(Track& sound) noexcept {
    TakeOut(sound);
    sound.head_.SetPosition(0);
    sound.reached.store(0, std::memory_order_relaxed);
    sound.ended.store(sound.play_, std::memory_order_release);
}

void Mixer::AddSources(float* stereo, int frames, bool heard) noexcept {
    for (Source* source : sources_) source->AddTo(stereo, frames, heard);
    const bool sounding = std::any_of(stereo, stereo + 2 * frames, [](float s) { return s != 0; });
    quiet_.store(sounding ? 0 : quiet_.load(std::memory_order_relaxed) + frames,
                 std::memory_order_relaxed);
}

}  // namespace tamlo
