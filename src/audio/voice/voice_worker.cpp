#include "audio/voice/voice_worker.h"

#include <algorithm>
#include <utility>

#include "audio/voice/wording.h"
#include "services/thread.h"

namespace tamlo {
namespace {

using namespace std::chrono_literals;

constexpr auto longest_stop = 1s;

}  // namespace

VoiceWorker::VoiceWorker(std::unique_ptr<Synthesizer> synthesizer, Onset onset)
    : started_(std::chrono::steady_clock::now()),
      progress_(started_),
      synthesizer_(std::move(synthesizer)),
      onset_(onset) {}

std::optional<int> VoiceWorker::Voices(std::chrono::milliseconds longest) {
    const auto end = started_ + longest;
    while (voices_ < 0 && std::chrono::steady_clock::now() < end) ready_or_finished_.SleepFor(50ms);
    const int voices = voices_;
    return voices < 0 ? std::nullopt : std::optional(voices);
}

bool VoiceWorker::Queue(Utterance utterance) {
    {
        std::lock_guard lock(mutex_);
        if (given_up_ || stop_ || voices_ == 0) return false;
        texts_.ForgetHeard(stream.HeardUpTo());
        texts_.Add(std::move(utterance));
    }
    stream.woken.Ring();
    return true;
}

void VoiceWorker::Drop() {
    {
        std::lock_guard lock(mutex_);
        DropLocked();
    }
    stream.woken.Ring();
}

void VoiceWorker::DropLocked() {
    ++generation_;
    texts_.Clear();
    stream.Drop();
}

bool VoiceWorker::WantedLocked() const {
    const bool to_say_again = stream.Returned() && texts_.Begun();
    return texts_.Waiting() || at_work_on_ == generation_ || to_say_again;
}

bool VoiceWorker::SamplesComing() {
    std::lock_guard lock(mutex_);
    return WantedLocked();
}

// The samples are looked at second: while a text turns into them it is one or the other. Both under
// the lock: while texts are said again they are neither.
bool VoiceWorker::Speaking() {
    std::lock_guard lock(mutex_);
    return WantedLocked() || stream.Left() > 0;
}

bool VoiceWorker::SilentFor(std::chrono::milliseconds time) {
    std::lock_guard lock(mutex_);
    const bool working = voices_ < 0 || (at_work_on_ != 0 && !waiting_for_room_);
    const auto longest = voices_ < 0 ? 10 * time : time;
    return working && WantedLocked() &&
           std::chrono::steady_clock::now() - progress_.load() >= longest;
}

VoiceWorker::Remains VoiceWorker::GiveUp() {
    std::lock_guard lock(mutex_);
    Remains remains;
    if (at_work_on_ == generation_) remains.in_work = texts_.Current().text;
    remains.waiting = texts_.TakeWaiting();
    DropLocked();
    given_up_ = true;
    return remains;
}

void VoiceWorker::BeginToStop() {
    {
        std::lock_guard lock(mutex_);
        DropLocked();
        stop_ = true;
    }
    stream.woken.Ring();
}

bool VoiceWorker::AwaitStop() {
    const auto end = std::chrono::steady_clock::now() + longest_stop;
    while (!finished_ && std::chrono::steady_clock::now() < end) ready_or_finished_.SleepFor(50ms);
    return finished_;
}

void VoiceWorker::LowerPriority() {
    if (thread_ != 0) tamlo::LowerPriority(thread_);
}

void VoiceWorker::Run() {
    thread_ = ThisThread();
    int voices = synthesizer_->Open();
    {
        std::lock_guard lock(mutex_);
        voices_ = voices;
        given_up_ = false;
        if (voices == 0) DropLocked();
        Progress();
    }
    ready_or_finished_.Ring();
    for (Job job; TakeJob(job);) {
        Synthesize(job);
        {
            std::lock_guard lock(mutex_);
            if (at_work_on_ == generation_) texts_.EndCurrent(stream.Written());
            at_work_on_ = 0;
            given_up_ = false;
        }
        stream.ended.Ring();
    }
    synthesizer_.reset();
    finished_ = true;
    ready_or_finished_.Ring();
}

bool VoiceWorker::TakeJob(Job& job) {
    for (;; stream.woken.Sleep()) {
        std::lock_guard lock(mutex_);
        if (stop_) return false;
        SayAgain();
        if (!texts_.Waiting()) continue;
        job = {texts_.Begin(), generation_};
        at_work_on_ = job.generation;
        Progress();
        return true;
    }
}

// Whatever has gone unheard since the last purge belongs to where the game still is.
void VoiceWorker::SayAgain() {
    texts_.ForgetHeard(stream.HeardUpTo());
    if (!stream.TakeReturn() || !texts_.Begun()) return;
    ++generation_;
    stream.Drop();
    texts_.StartOver();
}

void VoiceWorker::Synthesize(const Job& job) {
    Utterance utterance = job.utterance;
    utterance.text = WithSpokenAmounts(CleanedForSpeech(utterance.text));
    // A second synthesizer may find fewer.
    if (utterance.voice >= voices_) utterance.voice = 0;
    if (utterance.text.find_first_not_of(" \n") == utterance.text.npos) {
        synthesizer_->Prepare(utterance.voice);
        return;
    }

    SpeechDelivery delivery(
        synthesizer_->Rate(utterance.voice), onset_,
        {.put = [&](std::span<const float> samples) { return PutAll(samples, job.generation); },
         .sounding = [&] { return stream.Left() > 0; }});
    synthesizer_->Synthesize(utterance, [&](std::span<const std::int16_t> made) {
        Progress();
        return delivery.Take(made);
    });
    delivery.Finish();
}

bool VoiceWorker::PutAll(std::span<const float> samples, std::uint64_t generation) {
    if (!IsCurrent(generation)) return false;
    while (!samples.empty()) {
        if (!WaitForRoom(generation)) return false;
        auto count = std::min(samples.size(), static_cast<std::size_t>(stream.Room()));
        stream.Put(samples.first(count));
        samples = samples.subspan(count);
        std::lock_guard lock(mutex_);
        if (!IsCurrent(generation)) {
            stream.Retract();
            return false;
        }
        stream.Publish();
    }
    return true;
}

bool VoiceWorker::WaitForRoom(std::uint64_t generation) {
    while (IsCurrent(generation)) {
        if (stream.Room() > 0) return true;
        stream.RingWhenDownTo(SpeechStream::most_ahead / 2);
        waiting_for_room_ = true;
        stream.woken.Sleep();
        Progress();
        waiting_for_room_ = false;
        std::lock_guard lock(mutex_);
        SayAgain();
    }
    return false;
}

void VoiceWorker::Progress() {
    progress_ = std::chrono::steady_clock::now();
}

VoiceThread::VoiceThread(std::unique_ptr<Synthesizer> synthesizer, Onset onset)
    : worker_(std::make_shared<VoiceWorker>(std::move(synthesizer), onset)),
      thread_(StartThread([worker = worker_] { worker->Run(); })) {
    if (!thread_.joinable()) worker_->HaveNoVoices();
}

VoiceThread::~VoiceThread() {
    if (!thread_.joinable()) return;
    worker_->BeginToStop();
    if (worker_->AwaitStop()) {
        thread_.join();
    } else {
        thread_.detach();
    }
}

void VoiceThread::LeaveBehind() {
    if (!thread_.joinable()) return;
    worker_->BeginToStop();
    worker_->LowerPriority();
    thread_.detach();
}

}  // namespace tamlo
