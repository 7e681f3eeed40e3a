// One thread, which does nothing but answer the server and the game: the server's requests with
// more of the stream, the game's changes with another end of it. Nothing here waits for the server.
#include "linux/sound/pulse_stream.h"

#include <pulse/pulseaudio.h>

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <thread>
#include <vector>

#include "linux/sound/realtime.h"
#include "services/thread.h"

namespace tamlo {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr int frame_bytes = 2 * sizeof(float);
// What the server holds: longer than a machine of this kind stands still, and no more than the
// mixer can take back.
constexpr int depth = stream_rate * 128 / 1000;
static_assert(depth + 1024 <= Mixer::most_ahead);  // and a block
// What is heard next is left alone: the server may take it while it is being rewritten.
constexpr int margin = stream_rate * 2 / 1000;
// What is rendered again is sent in parts: the first soon, but long enough that the server does not
// come to its end if this thread is held up before the next.
constexpr int most_at_once = stream_rate * 32 / 1000;

template <class T, void (*release)(T*)>
struct Release {
    void operator()(T* object) const { release(object); }
};
using MainLoop = std::unique_ptr<pa_mainloop, Release<pa_mainloop, pa_mainloop_free>>;
using Context = std::unique_ptr<pa_context, Release<pa_context, pa_context_unref>>;
using Stream = std::unique_ptr<pa_stream, Release<pa_stream, pa_stream_unref>>;
using Properties = std::unique_ptr<pa_proplist, Release<pa_proplist, pa_proplist_free>>;

void Forget(pa_operation* operation) {
    if (operation != nullptr) pa_operation_unref(operation);
}

}  // namespace

/// The connection, on its own thread.
class PulseStream::Connection {
  public:
    Connection(std::shared_ptr<Tap> tap, std::shared_ptr<EventBell> changes, int frames,
               std::atomic<int>& late)
        : counted_from_(Clock::now() + settling_time),
          tap_(std::move(tap)),
          changes_(std::move(changes)),
          frames_(frames),
          late_(late) {
        calls_.Listen(true);
        changes_->Listen(true);
        thread_ = StartThread([this] { Run(); });
        if (!thread_.joinable()) Note(Opening::none);
    }
    ~Connection() {
        ending_ = true;
        calls_.Ring();
        if (thread_.joinable()) thread_.join();
        changes_->Listen(false);
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    std::atomic<Opening> progress{Opening::awaited};
    std::atomic<int> blocks{0};
    std::atomic<bool> gone{false};
    std::atomic<bool> paused{false};

    int Frames() const { return frames_; }

  private:
    void Run();
    void Connect();
    void Watch(EventBell& bell, pa_io_event_cb_t callback);
    void Note(Opening what);

    void Fail();
    void OnContext();
    void OnServer(const pa_server_info* server);
    void OpenStream();
    void OnStream();
    void Fill();
    void AskWhere();
    void Rewrite(bool told);
    int Held() const;
    void Write(int blocks_wanted);

    const Clock::time_point counted_from_;
    const std::shared_ptr<Tap> tap_;
    const std::shared_ptr<EventBell> changes_;
    const int frames_;
    std::atomic<int>& late_;
    EventBell calls_;  ///< by the thread that ends it
    std::atomic<bool> ending_{false};
    std::thread thread_;

    // The thread's own.
    MainLoop loop_;
    Context context_;
    Stream stream_;
    int depth_ = 0;        ///< frames that the server means to hold
    bool asking_ = false;  ///< the server where it is
    bool changed_ = false;
    int to_rewrite_ = 0;  ///< frames, the last that the server holds
    std::vector<float> block_;
};

/// Only the first answer counts.
void PulseStream::Connection::Note(Opening what) {
    Opening awaited = Opening::awaited;
    progress.compare_exchange_strong(awaited, what);
}

void PulseStream::Connection::Run() {
    TakeRealTime();
    AskBrokerFor(ThisThread());
    loop_.reset(pa_mainloop_new());
    gone = loop_ == nullptr;
    if (!gone) {
        Watch(calls_, [](pa_mainloop_api* /*api*/, pa_io_event* /*event*/, int /*descriptor*/,
                         pa_io_event_flags_t /*flags*/,
                         void* self) { static_cast<Connection*>(self)->calls_.TakeRings(); });
        Connect();
    }
    while (!ending_ && !gone && pa_mainloop_iterate(loop_.get(), 1, nullptr) >= 0) {
    }
    gone = true;
    Note(Opening::none);
    if (stream_) pa_stream_disconnect(stream_.get());
    if (context_) pa_context_disconnect(context_.get());
    stream_.reset();
    context_.reset();
    loop_.reset();
}

void PulseStream::Connection::Watch(EventBell& bell, pa_io_event_cb_t callback) {
    pa_mainloop_api* api = pa_mainloop_get_api(loop_.get());
    if (bell.Number() < 0 ||
        api->io_new(api, bell.Number(), PA_IO_EVENT_INPUT, callback, this) == nullptr) {
        gone = true;
    }
}

void PulseStream::Connection::Connect() {
    const Properties properties(pa_proplist_new());
    pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_NAME, "Tamlo Delivery");
    pa_proplist_sets(properties.get(), PA_PROP_MEDIA_ROLE, "game");
    context_.reset(pa_context_new_with_proplist(pa_mainloop_get_api(loop_.get()), "Tamlo Delivery",
                                                properties.get()));
    if (!context_) {
        gone = true;
        return;
    }
    pa_context_set_state_callback(
        context_.get(),
        [](pa_context* /*context*/, void* self) { static_cast<Connection*>(self)->OnContext(); },
        this);
    if (pa_context_connect(context_.get(), nullptr, PA_CONTEXT_NOFLAGS, nullptr) < 0) gone = true;
}

void PulseStream::Connection::Fail() {
    if (pa_context_errno(context_.get()) == PA_ERR_TIMEOUT) Note(Opening::hangs);
    gone = true;
}

void PulseStream::Connection::OnContext() {
    const pa_context_state_t state = pa_context_get_state(context_.get());
    if (!PA_CONTEXT_IS_GOOD(state)) Fail();
    if (state != PA_CONTEXT_READY) return;
    pa_operation* question = pa_context_get_server_info(
        context_.get(),
        [](pa_context* /*context*/, const pa_server_info* server, void* self) {
            static_cast<Connection*>(self)->OnServer(server);
        },
        this);
    if (question == nullptr) gone = true;
    Forget(question);
}

// Others speak the protocol as well, but not all of them take back what they were given.
void PulseStream::Connection::OnServer(const pa_server_info* server) {
    if (server == nullptr || std::string_view(server->server_name) != "pulseaudio") {
        Note(server == nullptr ? Opening::none : Opening::other);
        gone = true;
    } else {
        OpenStream();
    }
}

void PulseStream::Connection::OpenStream() {
    const pa_sample_spec format{PA_SAMPLE_FLOAT32NE, stream_rate, 2};
    stream_.reset(pa_stream_new(context_.get(), "Tamlo Delivery", &format, nullptr));
    if (!stream_) {
        gone = true;
        return;
    }
    pa_stream_set_state_callback(
        stream_.get(),
        [](pa_stream* /*stream*/, void* self) { static_cast<Connection*>(self)->OnStream(); },
        this);
    pa_stream_set_write_callback(
        stream_.get(),
        [](pa_stream* /*stream*/, std::size_t /*bytes*/, void* self) {
            static_cast<Connection*>(self)->Fill();
        },
        this);
    pa_stream_set_suspended_callback(
        stream_.get(),
        [](pa_stream* stream, void* self) {
            static_cast<Connection*>(self)->paused = pa_stream_is_suspended(stream) == 1;
        },
        this);
    pa_stream_set_underflow_callback(
        stream_.get(),
        [](pa_stream* /*stream*/, void* user) {
            auto* connection = static_cast<Connection*>(user);
            if (Clock::now() > connection->counted_from_) ++connection->late_;
        },
        this);
    const auto block_bytes = static_cast<std::uint32_t>(frames_ * frame_bytes);
    pa_buffer_attr sizes{};
    sizes.maxlength = static_cast<std::uint32_t>(-1);
    sizes.tlength = depth * frame_bytes;
    sizes.prebuf = block_bytes;
    sizes.minreq = block_bytes;
    sizes.fragsize = static_cast<std::uint32_t>(-1);
    // Early requests: the sink itself is to hold no more than a block, which can't be taken back.
    if (pa_stream_connect_playback(stream_.get(), nullptr, &sizes, PA_STREAM_EARLY_REQUESTS,
                                   nullptr, nullptr) < 0) {
        gone = true;
    }
}

void PulseStream::Connection::OnStream() {
    const pa_stream_state_t state = pa_stream_get_state(stream_.get());
    if (!PA_STREAM_IS_GOOD(state)) Fail();
    if (state != PA_STREAM_READY) return;
    const pa_buffer_attr* sizes = pa_stream_get_buffer_attr(stream_.get());
    if (sizes == nullptr) {
        gone = true;
        return;
    }
    depth_ = static_cast<int>(sizes->tlength) / frame_bytes;
    Watch(*changes_, [](pa_mainloop_api* /*api*/, pa_io_event* /*event*/, int /*descriptor*/,
                        pa_io_event_flags_t /*flags*/,
                        void* self) { static_cast<Connection*>(self)->AskWhere(); });
    paused = pa_stream_is_suspended(stream_.get()) == 1;
    Fill();
    Note(Opening::opened);
}

/// Frames that the server holds, as far as is known without asking it.
int PulseStream::Connection::Held() const {
    const auto room = static_cast<int>(pa_stream_writable_size(stream_.get()) / frame_bytes);
    return std::max(depth_ - room, 0);
}

void PulseStream::Connection::Fill() {
    if (pa_stream_get_state(stream_.get()) != PA_STREAM_READY) return;
    const int held = Held();
    tap_->Commit(held - to_rewrite_);
    if (changed_) AskWhere();
    Write((depth_ - held + to_rewrite_) / frames_);
}

void PulseStream::Connection::Write(int blocks_wanted) {
    const int most = std::max(most_at_once / frames_, 1);
    const int samples = 2 * frames_ * most;
    block_.resize(static_cast<std::size_t>(samples));
    int again = to_rewrite_;  // not asked for by the server
    while (blocks_wanted > 0) {
        const int some = std::min(blocks_wanted, most);
        if (!tap_->PullAhead(block_.data(), some * frames_)) return;
        const int bytes = some * frames_ * frame_bytes;
        pa_stream_write(stream_.get(), block_.data(), static_cast<std::size_t>(bytes), nullptr,
                        -std::int64_t{to_rewrite_} * frame_bytes, PA_SEEK_RELATIVE);
        to_rewrite_ = 0;
        if (some * frames_ > again) ++blocks;
        again = std::max(again - some * frames_, 0);
        blocks_wanted -= some;
    }
}

/// Asks for the read position, so that as much as possible is rewritten.
void PulseStream::Connection::AskWhere() {
    changes_->TakeRings();
    changed_ = true;
    if (asking_) return;
    pa_operation* question = pa_stream_update_timing_info(
        stream_.get(),
        [](pa_stream* /*stream*/, int told, void* self) {
            static_cast<Connection*>(self)->Rewrite(told != 0);
        },
        this);
    asking_ = question != nullptr;
    Forget(question);
}

void PulseStream::Connection::Rewrite(bool told) {
    asking_ = false;
    if (!changed_ || pa_stream_get_state(stream_.get()) != PA_STREAM_READY) return;
    const pa_timing_info* where = pa_stream_get_timing_info(stream_.get());
    const bool known =
        told && where != nullptr && !where->read_index_corrupt && !where->write_index_corrupt;
    const int held =
        known ? static_cast<int>(std::clamp<std::int64_t>(
                    (where->write_index - where->read_index) / frame_bytes, 0, Mixer::most_ahead))
              : Held();
    changes_->TakeRings();  // what they were for is taken now
    const std::optional<int> rewound = tap_->Rewind(std::max(held - to_rewrite_ - margin, 0));
    if (!rewound) return;  // with the next block
    changed_ = false;
    to_rewrite_ += *rewound;
    // To the end of what was there at least.
    Write((std::max(depth_ - held, 0) + to_rewrite_ + frames_ - 1) / frames_);
}

PulseStream::PulseStream(std::shared_ptr<Tap> tap, std::shared_ptr<EventBell> changes, int frames,
                         std::atomic<int>& late)
    : connection_(std::make_unique<Connection>(std::move(tap), std::move(changes), frames, late)) {}

PulseStream::~PulseStream() {
    if (!connection_->gone) std::this_thread::sleep_for(10ms);
}

Opening PulseStream::Progress() const {
    return connection_->progress;
}

int PulseStream::Blocks() const {
    return connection_->blocks;
}

int PulseStream::Frames() const {
    return connection_->Frames();
}

bool PulseStream::Gone() const {
    return connection_->gone;
}

bool PulseStream::Paused() const {
    return connection_->paused;
}

}  // namespace tamlo
