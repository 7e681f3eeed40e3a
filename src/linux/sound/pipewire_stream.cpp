// Three threads: the keeper's opens and closes, the library's loop follows the server, and the data
// thread, which has real-time priority where the system grants it, fills the blocks.
#include "linux/sound/pipewire_stream.h"

#include <spa/param/audio/format-utils.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include "linux/sound/pipewire_library.h"
#include "linux/sound/realtime.h"

namespace tamlo {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int frame_bytes = 2 * sizeof(float);
constexpr const char* name = "Tamlo Delivery";
// A longer absence is no drop-out: the sink was paused, or the machine asleep.
constexpr std::int64_t longest_dropout = stream_rate;

std::string Latency(int frames) {
    return std::to_string(frames) + "/" + std::to_string(stream_rate);
}

/// Room for the description of the format.
class FormatPod {
  public:
    FormatPod() {
        spa_pod_builder builder{};
        spa_pod_builder_init(&builder, room_.data(), static_cast<std::uint32_t>(room_.size()));
        spa_audio_info_raw format{};
        format.format = SPA_AUDIO_FORMAT_F32;
        format.rate = stream_rate;
        format.channels = 2;
        format.position[0] = SPA_AUDIO_CHANNEL_FL;
        format.position[1] = SPA_AUDIO_CHANNEL_FR;
        pod_ = spa_format_audio_raw_build(&builder, SPA_PARAM_EnumFormat, &format);
    }
    const spa_pod* Get() const { return pod_; }

  private:
    alignas(8) std::array<std::uint8_t, 512> room_{};
    const spa_pod* pod_ = nullptr;
};

}  // namespace

class PipeWireStream::Connection {
  public:
    Connection(std::shared_ptr<Tap> tap, int wanted, std::atomic<int>& late)
        : counted_from_(Clock::now() + settling_time),
          tap_(std::move(tap)),
          late_(late),
          frames(wanted),
          pw_(LoadPipeWire()) {
        if (pw_ == nullptr || !Start()) Note(Opening::none);
    }
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void Resize(int wanted);

  private:
    bool Start();
    bool Connect();
    bool OpenStream();
    static pw_core_events CoreEvents();
    static pw_registry_events RegistryEvents();
    static pw_stream_events StreamEvents();
    pw_properties* Properties(std::initializer_list<spa_dict_item> items) const;
    void Note(Opening what);

    void OnDone(int sequence);
    void OnError(std::uint32_t object, int result);
    void OnGlobal(const spa_dict* properties);
    void OnState(pw_stream_state state);
    void Fill();
    void CountLate(int block);

    // The data thread's own.
    std::atomic<Clock::time_point> counted_from_;
    std::int64_t last_cycle_ = -1;  ///< its beginning in the graph's time, in frames
    int last_block_ = 0;

    const std::shared_ptr<Tap> tap_;
    std::atomic<int>& late_;

  public:
    std::atomic<Opening> progress{Opening::awaited};
    std::atomic<int> blocks{0};
    std::atomic<int> frames;
    std::atomic<bool> gone{false};

  private:
    const PipeWireLibrary* const pw_;
    pw_thread_loop* loop_ = nullptr;
    pw_context* context_ = nullptr;
    pw_core* core_ = nullptr;
    pw_registry* registry_ = nullptr;
    pw_stream* stream_ = nullptr;
    spa_hook core_hook_{};
    spa_hook registry_hook_{};
    spa_hook stream_hook_{};
    int sinks_ = 0;
    int all_told_ = 0;  ///< number of the message after which all sinks are known
};

pw_core_events PipeWireStream::Connection::CoreEvents() {
    pw_core_events events{};
    events.version = PW_VERSION_CORE_EVENTS;
    events.done = [](void* self, std::uint32_t /*object*/, int sequence) {
        static_cast<Connection*>(self)->OnDone(sequence);
    };
    events.error = [](void* self, std::uint32_t object, int /*sequence*/, int result,
                      const char* /*message*/) {
        static_cast<Connection*>(self)->OnError(object, result);
    };
    return events;
}

pw_registry_events PipeWireStream::Connection::RegistryEvents() {
    pw_registry_events events{};
    events.version = PW_VERSION_REGISTRY_EVENTS;
    events.global = [](void* self, std::uint32_t /*number*/, std::uint32_t /*permissions*/,
                       const char* /*type*/, std::uint32_t /*version*/,
                       const spa_dict* properties) {
        static_cast<Connection*>(self)->OnGlobal(properties);
    };
    return events;
}

pw_stream_events PipeWireStream::Connection::StreamEvents() {
    pw_stream_events events{};
    events.version = PW_VERSION_STREAM_EVENTS;
    events.state_changed = [](void* self, pw_stream_state /*before*/, pw_stream_state now,
                              const char* /*error*/) {
        static_cast<Connection*>(self)->OnState(now);
    };
    events.process = [](void* self) { static_cast<Connection*>(self)->Fill(); };
    return events;
}

/// Only the first answer counts.
void PipeWireStream::Connection::Note(Opening what) {
    Opening awaited = Opening::awaited;
    progress.compare_exchange_strong(awaited, what);
}

pw_properties* PipeWireStream::Connection::Properties(
    std::initializer_list<spa_dict_item> items) const {
    const spa_dict dictionary{0, static_cast<std::uint32_t>(items.size()), items.begin()};
    return pw_->pw_properties_new_dict(&dictionary);
}

bool PipeWireStream::Connection::Start() {
    loop_ = pw_->pw_thread_loop_new("tamlo sound", nullptr);
    if (loop_ == nullptr || pw_->pw_thread_loop_start(loop_) != 0) return false;
    pw_->pw_thread_loop_lock(loop_);
    const bool connected = Connect() && OpenStream();
    pw_->pw_thread_loop_unlock(loop_);
    return connected;
}

bool PipeWireStream::Connection::Connect() {
    // This configuration asks for real-time priority for the data thread.
    for (const char* configuration : {"client-rt.conf", "client.conf"}) {
        pw_properties* properties = Properties({{PW_KEY_CONFIG_NAME, configuration}});
        context_ = pw_->pw_context_new(pw_->pw_thread_loop_get_loop(loop_), properties, 0);
        if (context_ != nullptr) break;
    }
    if (context_ == nullptr) return false;
    core_ = pw_->pw_context_connect(context_, Properties({{PW_KEY_APP_NAME, name}}), 0);
    if (core_ == nullptr) return false;

    static const pw_core_events events = CoreEvents();
    pw_core_add_listener(core_, &core_hook_, &events, this);
    registry_ = pw_core_get_registry(core_, PW_VERSION_REGISTRY, 0);
    if (registry_ == nullptr) return false;
    static const pw_registry_events globals = RegistryEvents();
    pw_registry_add_listener(registry_, &registry_hook_, &globals, this);
    all_told_ = pw_core_sync(core_, PW_ID_CORE, 0);
    return true;
}

bool PipeWireStream::Connection::OpenStream() {
    const std::string latency = Latency(frames);
    stream_ = pw_->pw_stream_new(core_, name,
                                 Properties({{PW_KEY_MEDIA_TYPE, "Audio"},
                                             {PW_KEY_MEDIA_CATEGORY, "Playback"},
                                             {PW_KEY_MEDIA_ROLE, "Game"},
                                             {PW_KEY_APP_NAME, name},
                                             {PW_KEY_NODE_NAME, name},
                                             {PW_KEY_NODE_LATENCY, latency.c_str()}}));
    if (stream_ == nullptr) return false;
    static const pw_stream_events events = StreamEvents();
    pw_->pw_stream_add_listener(stream_, &stream_hook_, &events, this);
    const FormatPod format;
    std::array<const spa_pod*, 1> parameters{format.Get()};
    constexpr auto flags = static_cast<pw_stream_flags>(
        PW_STREAM_FLAG_AUTOCONNECT | PW_STREAM_FLAG_MAP_BUFFERS | PW_STREAM_FLAG_RT_PROCESS);
    return pw_->pw_stream_connect(stream_, PW_DIRECTION_OUTPUT, PW_ID_ANY, flags, parameters.data(),
                                  parameters.size()) == 0;
}

// The loop is stopped without its lock, so that nothing here waits for the server.
PipeWireStream::Connection::~Connection() {
    if (loop_ != nullptr) pw_->pw_thread_loop_stop(loop_);
    if (stream_ != nullptr) pw_->pw_stream_destroy(stream_);
    if (registry_ != nullptr) pw_->pw_proxy_destroy(reinterpret_cast<pw_proxy*>(registry_));
    if (core_ != nullptr) pw_->pw_core_disconnect(core_);
    if (context_ != nullptr) pw_->pw_context_destroy(context_);
    if (loop_ != nullptr) pw_->pw_thread_loop_destroy(loop_);
}

/// A server for screen sharing has no sink, and would never let a stream begin.
void PipeWireStream::Connection::OnDone(int sequence) {
    if (sequence == all_told_ && sinks_ == 0) Note(Opening::none);
}

void PipeWireStream::Connection::OnError(std::uint32_t object, int result) {
    if (object == PW_ID_CORE && result == -EPIPE) gone = true;
}

void PipeWireStream::Connection::OnGlobal(const spa_dict* properties) {
    const char* const kind =
        properties == nullptr ? nullptr : spa_dict_lookup(properties, PW_KEY_MEDIA_CLASS);
    if (kind != nullptr && std::string_view(kind).starts_with("Audio/Sink")) ++sinks_;
}

void PipeWireStream::Connection::OnState(pw_stream_state state) {
    if (state == PW_STREAM_STATE_ERROR) gone = true;
}

void PipeWireStream::Connection::Fill() {
    pw_buffer* const buffer = pw_->pw_stream_dequeue_buffer(stream_);
    if (buffer == nullptr) return;
    if (blocks == 0) TakeRealTime();
    spa_data& data = buffer->buffer->datas[0];
    auto block = static_cast<int>(data.maxsize) / frame_bytes;
    const auto requested = static_cast<int>(std::min<std::uint64_t>(buffer->requested, INT32_MAX));
    if (requested > 0) block = std::min(block, requested);
    if (data.data != nullptr) tap_->Pull(static_cast<float*>(data.data), block);
    data.chunk->offset = 0;
    data.chunk->stride = frame_bytes;
    data.chunk->size = static_cast<std::uint32_t>(block * frame_bytes);
    pw_->pw_stream_queue_buffer(stream_, buffer);
    CountLate(block);
    frames = block;
    ++blocks;
    Note(Opening::opened);
}

// The graph's time goes on without those who miss a cycle. From the beginning of one cycle to that
// of the next is the length of the block in between, whatever that is.
void PipeWireStream::Connection::CountLate(int block) {
    pw_time time{};
    if (pw_->pw_stream_get_time_n(stream_, &time, sizeof time) != 0 || time.rate.denom == 0) return;
    const auto cycle =
        static_cast<std::int64_t>(time.ticks * time.rate.num * stream_rate / time.rate.denom);
    const std::int64_t passed = cycle - last_cycle_;
    const bool missed = passed > last_block_ * 3 / 2 && passed < longest_dropout;
    if (last_cycle_ >= 0 && missed && Clock::now() > counted_from_.load()) ++late_;
    last_cycle_ = cycle;
    last_block_ = block;
}

void PipeWireStream::Connection::Resize(int wanted) {
    if (stream_ == nullptr) return;
    const std::string latency = Latency(wanted);
    const spa_dict_item item{PW_KEY_NODE_LATENCY, latency.c_str()};
    const spa_dict properties{0, 1, &item};
    counted_from_ = Clock::now() + settling_time;
    pw_->pw_thread_loop_lock(loop_);
    pw_->pw_stream_update_properties(stream_, &properties);
    pw_->pw_thread_loop_unlock(loop_);
}

PipeWireStream::PipeWireStream(std::shared_ptr<Tap> tap, int frames, std::atomic<int>& late)
    : connection_(std::make_unique<Connection>(std::move(tap), frames, late)) {}

PipeWireStream::~PipeWireStream() = default;

Opening PipeWireStream::Progress() const {
    return connection_->progress;
}

int PipeWireStream::Blocks() const {
    return connection_->blocks;
}

int PipeWireStream::Frames() const {
    return connection_->frames;
}

bool PipeWireStream::Gone() const {
    return connection_->gone;
}

void PipeWireStream::Resize(int frames) {
    connection_->Resize(frames);
}

}  // namespace tamlo
