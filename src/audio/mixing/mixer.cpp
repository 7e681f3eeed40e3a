// The mixer's two sides: commands from the game's thread, and the sums made on the audio thread.
#include "audio/mixing/mixer.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tamlo {

Mixer::Mixer(Instructions instructions, std::shared_ptr<ChangeBell> changes)
    : changes_(std::move(changes)), tracks_(SelectInterpolator(instructions)) {}

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

TrackHandle Mixer::Add(std::shared_ptr<const WaveData> wave) {
    return {std::make_unique<Track>(std::move(wave)).release(), TrackRemover{this}};
}

// The audio thread may know the track: it gives it back with the command.
void TrackRemover::operator()(Track* track) const {
    mixer->Send({.kind = TrackCommand::Kind::remove,
                 .track = track,
                 .removed = std::unique_ptr<Track>(track)});
}

void Mixer::Play(Track& track, PlayMode mode, unsigned number) {
    Send({.kind = TrackCommand::Kind::play,
          .track = &track,
          .value = mode == PlayMode::looping,
          .number = number});
}

void Mixer::Stop(Track& track) {
    Send({.kind = TrackCommand::Kind::stop, .track = &track});
}

void Mixer::Seek(Track& track, std::int64_t frame) {
    Send({.kind = TrackCommand::Kind::seek, .track = &track, .value = frame});
}

void Mixer::SetGains(Track& track, Gains gains) {
    Send({.kind = TrackCommand::Kind::gains, .track = &track, .gains = gains});
}

void Mixer::SetFrequency(Track& track, int frequency) {
    Send({.kind = TrackCommand::Kind::step, .track = &track, .value = StepFor(frequency)});
}

void Mixer::Send(TrackCommand command) {
    Free(spent_.TakeAll());
    commands_.Push(std::make_unique<TrackCommand>(std::move(command)).release());
    if (changes_ != nullptr) changes_->Ring();
}

void Mixer::Free(TrackCommand* list) {
    while (list != nullptr) {
        const std::unique_ptr<TrackCommand> command(list);
        list = command->next;
    }
}

void Mixer::Obey() noexcept {
    TrackCommand* command = commands_.TakeAll();
    while (command != nullptr) {
        TrackCommand* next = command->next;
        tracks_.Obey(*command);
        spent_.Push(command);
        command = next;
    }
    obeyed_at_ = now_.frame;
}

void Mixer::Mix(float* stereo, int frames, bool heard) noexcept {
    // Attaching is rare; should it be under way, the sources miss this one block.
    const std::unique_lock lock(sources_mutex_, std::try_to_lock);
    const Sources sources = lock ? Sources(sources_) : Sources();
    GoBack(sources, history_.Heard().frame);
    Obey();
    for (Source* source : sources) source->BeginBlock(heard);
    for (int done = 0; done < frames;) {
        const int piece = std::min(frames - done, longest_piece);
        Render(sources, stereo + 2 * done, piece);
        done += piece;
    }
    Save(sources);
    CommitUpTo(sources, now_.frame);
}

void Mixer::Pass(int frames) noexcept {
    const std::unique_lock lock(sources_mutex_, std::try_to_lock);
    const Sources sources = lock ? Sources(sources_) : Sources();
    GoBack(sources, history_.Heard().frame);
    Obey();
    for (Source* source : sources) source->BeginBlock(false);
    for (int left = frames; left > 0; left -= longest_piece) {
        std::array<float, 2 * longest_piece> unheard{};
        AddSources(sources, unheard.data(), std::min(left, longest_piece));
    }
    tracks_.Pass(frames);
    now_.limiter = {};
    now_.frame += frames;
    Save(sources);
    CommitUpTo(sources, now_.frame);
}

// What sources have taken in since the last state was saved is for the frames after it: their state
// is saved again.
bool Mixer::MixAhead(float* stereo, int frames, bool heard) noexcept {
    const std::unique_lock lock(sources_mutex_, std::try_to_lock);
    if (!lock) return false;
    for (int done = 0; done < frames; done += longest_piece) {
        for (Source* source : sources_) {
            source->BeginBlock(heard);
            source->SaveState(history_.RenderedSlot());
        }
        Render(sources_, stereo + 2 * done, longest_piece);
        Save(sources_);
    }
    return true;
}

int Mixer::Commit(int ahead) noexcept {
    const std::unique_lock lock(sources_mutex_, std::try_to_lock);
    return lock ? CommitUpTo(sources_, now_.frame - ahead) : 0;
}

std::optional<int> Mixer::Rewind(int ahead) noexcept {
    const std::unique_lock lock(sources_mutex_, std::try_to_lock);
    if (!lock) return std::nullopt;
    const std::int64_t end = now_.frame;
    GoBack(sources_, end - ahead);
    Obey();
    for (Source* source : sources_) source->BeginBlock(true);
    Save(sources_);
    return static_cast<int>(end - now_.frame);
}

/// Goes back to the frame, or to the first one after it that may still change: restores the last
/// state before it and renders up to it again, the same as before.
void Mixer::GoBack(Sources sources, std::int64_t frame) noexcept {
    const std::int64_t target =
        std::min(now_.frame, std::max({frame, obeyed_at_, history_.Heard().frame}));
    if (history_.ForgetAfter(target)) {
        now_ = history_.Rendered();
        tracks_.RestoreState(history_.RenderedSlot());
        for (Source* source : sources) source->RestoreState(history_.RenderedSlot());
    }
    while (now_.frame < target) {
        std::array<float, 2 * longest_piece> again;
        const auto left = std::min<std::int64_t>(target - now_.frame, longest_piece);
        Render(sources, again.data(), static_cast<int>(left));
    }
}

void Mixer::Save(Sources sources) noexcept {
    const int slot = history_.Save(now_);
    tracks_.SaveState(slot);
    for (Source* source : sources) source->SaveState(slot);
}

int Mixer::CommitUpTo(Sources sources, std::int64_t frame) noexcept {
    const int slot = history_.CommitUpTo(frame);
    const auto frames = static_cast<int>(history_.Heard().frame - committed_);
    if (frames == 0) return 0;
    committed_ += frames;
    tracks_.Commit(slot);
    quiet_.store(history_.Heard().quiet, std::memory_order_relaxed);
    for (Source* source : sources) source->Commit(slot, frames);
    return frames;
}

void Mixer::Render(Sources sources, float* stereo, int frames) noexcept {
    std::fill_n(stereo, 2 * frames, 0.0F);
    AddSources(sources, stereo, frames);
    tracks_.AddTo(stereo, frames);
    now_.limiter.Process(stereo, frames);
    now_.frame += frames;
}

void Mixer::AddSources(Sources sources, float* stereo, int frames) noexcept {
    for (Source* source : sources) source->AddTo(stereo, frames);
    const bool audible = std::any_of(stereo, stereo + 2 * frames, [](float s) { return s != 0; });
    now_.quiet = audible ? 0 : now_.quiet + frames;
}

}  // namespace tamlo
