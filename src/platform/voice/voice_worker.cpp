#include "platform/voice/voice_worker.h"

#include <signal.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <system_error>

#include "platform/voice/wording.h"

namespace tamlo {
namespace {

using namespace std::chrono_literals;

constexpr auto longest_opening = 3s;
constexpr auto longest_stop = 1s;
/// A text for which the synthesizer gives no sign of life for so long counts as spoken.
constexpr auto longest_silence = 2s;
/// -50 dB of full scale: what is softer at the start of a text only delays it.
constexpr float audible = 0.00316f;
/// Between texts queued one behind the other, which would run together; none behind the last.
constexpr std::array<float, stream_rate * 130 / 1000> pause{};

}  // namespace

VoiceWorker::VoiceWorker(std::unique_ptr<Synthesizer> synthesizer)
    : started_(std::chrono::steady_clock::now()),
      progress_(started_),
      synthesizer_(std::move(synthesizer)) {}

int VoiceWorker::Voices() {
    const auto end = started_ + longest_opening;
    while (voices_ < 0 && std::chrono::steady_clock::now() < end) ready_or_finished_.SleepFor(50ms);
    return std::max(voices_.load(), 0);
}

void VoiceWorker::Speak(Utterance utterance) {
    GiveUpIfStuck();
    {
        std::lock_guard lock(mutex_);
        if (stuck_ || stop_ || voices_ == 0) return;
        jobs_.push_back({std::move(utterance), generation_});
    }
    stream.woken.Ring();
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
    jobs_.clear();
    stream.Drop();
}

bool VoiceWorker::SamplesComing() {
    GiveUpIfStuck();
    std::lock_guard lock(mutex_);
    return !jobs_.empty() || at_work_on_ == generation_;
}

// The samples are looked at second: while a text turns into them it is one or the other.
bool VoiceWorker::Speaking() {
    return SamplesComing() || stream.Left() > 0;
}

void VoiceWorker::GiveUpIfStuck() {
    std::lock_guard lock(mutex_);
    bool working = voices_ < 0 || (at_work_on_ != 0 && !waiting_for_room_);
    bool wanted = !jobs_.empty() || at_work_on_ == generation_;
    if (!working || !wanted) return;
    if (std::chrono::steady_clock::now() - progress_.load() < longest_silence) return;
    DropLocked();
    stuck_ = true;
}

bool VoiceWorker::Stop() {
    {
        std::lock_guard lock(mutex_);
        DropLocked();
        stop_ = true;
    }
    stream.woken.Ring();
    const auto end = std::chrono::steady_clock::now() + longest_stop;
    while (!finished_ && std::chrono::steady_clock::now() < end) ready_or_finished_.SleepFor(50ms);
    return finished_;
}

void VoiceWorker::Run() {
    int voices = synthesizer_->Open();
    {
        std::lock_guard lock(mutex_);
        voices_ = voices;
        stuck_ = false;
        if (voices == 0) jobs_.clear();
        Progress();
    }
    ready_or_finished_.Ring();
    for (Job job; TakeJob(job);) {
        Synthesize(job);
        {
            std::lock_guard lock(mutex_);
            at_work_on_ = 0;
            stuck_ = false;
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
        if (jobs_.empty()) continue;
        job = std::move(jobs_.front());
        jobs_.pop_front();
        at_work_on_ = job.generation;
        Progress();
        return true;
    }
}

void VoiceWorker::Synthesize(const Job& job) {
    Utterance utterance = job.utterance;
    utterance.text = WithSpokenAmounts(CleanedForSpeech(utterance.text));
    if (utterance.text.find_first_not_of(" \n") == utterance.text.npos) return;

    Resampler resampler(synthesizer_->Rate());
    onset_found_ = false;
    synthesizer_->Synthesize(utterance, [&](std::span<const std::int16_t> made) {
        Progress();
        samples_.clear();
        resampler.Process(made.data(), made.size(), samples_);
        return Deliver(samples_, job.generation);
    });
    samples_.clear();
    resampler.Finish(samples_);
    Deliver(samples_, job.generation);
}

bool VoiceWorker::Deliver(std::span<const float> samples, std::uint64_t generation) {
    if (!IsCurrent(generation)) return false;
    if (!onset_found_) {
        auto onset = std::find_if(samples.begin(), samples.end(),
                                  [](float sample) { return std::abs(sample) > audible; });
        if (onset == samples.end()) return true;
        onset_found_ = true;
        samples = {onset, samples.end()};
        if (stream.Left() > 0 && !PutAll(pause, generation)) return false;
    }
    return PutAll(samples, generation);
}

bool VoiceWorker::PutAll(std::span<const float> samples, std::uint64_t generation) {
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
        stream.Commit();
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
    }
    return false;
}

void VoiceWorker::Progress() {
    progress_ = std::chrono::steady_clock::now();
}

VoiceThread::VoiceThread(std::unique_ptr<Synthesizer> synthesizer)
    : worker_(std::make_shared<VoiceWorker>(std::move(synthesizer))) {
    // Signals are for the game's thread, which a signal is to wake.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    try {
        thread_ = std::thread([worker = worker_] { worker->Run(); });
    } catch (const std::system_error&) {
        worker_->HaveNoVoices();
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

VoiceThread::~VoiceThread() {
    if (!thread_.joinable()) return;
    if (worker_->Stop()) {
        thread_.join();
    } else {
        thread_.detach();
    }
}

}  // namespace tamlo
