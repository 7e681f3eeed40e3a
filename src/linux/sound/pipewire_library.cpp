#include "linux/sound/pipewire_library.h"

#include <dlfcn.h>

#include <optional>

#include "linux/system/library_function.h"

namespace tamlo {
namespace {

constexpr const char* file_name = "libpipewire-0.3.so.0";

std::optional<PipeWireLibrary> Load() {
    void* const handle = dlopen(file_name, RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) return std::nullopt;
    PipeWireLibrary library;
    bool complete = true;
    const auto find = [&](auto& function, const char* name) {
        complete = FindFunction(handle, name, function) && complete;
    };
#define TAMLO_FIND(function) find(library.function, #function)
    TAMLO_FIND(pw_init);
    TAMLO_FIND(pw_properties_new_dict);
    TAMLO_FIND(pw_thread_loop_new);
    TAMLO_FIND(pw_thread_loop_destroy);
    TAMLO_FIND(pw_thread_loop_start);
    TAMLO_FIND(pw_thread_loop_stop);
    TAMLO_FIND(pw_thread_loop_lock);
    TAMLO_FIND(pw_thread_loop_unlock);
    TAMLO_FIND(pw_thread_loop_get_loop);
    TAMLO_FIND(pw_context_new);
    TAMLO_FIND(pw_context_destroy);
    TAMLO_FIND(pw_context_connect);
    TAMLO_FIND(pw_core_disconnect);
    TAMLO_FIND(pw_proxy_destroy);
    TAMLO_FIND(pw_stream_new);
    TAMLO_FIND(pw_stream_destroy);
    TAMLO_FIND(pw_stream_add_listener);
    TAMLO_FIND(pw_stream_connect);
    TAMLO_FIND(pw_stream_update_properties);
    TAMLO_FIND(pw_stream_dequeue_buffer);
    TAMLO_FIND(pw_stream_queue_buffer);
    TAMLO_FIND(pw_stream_get_time_n);
#undef TAMLO_FIND
    if (!complete) return std::nullopt;
    library.pw_init(nullptr, nullptr);
    return library;
}

}  // namespace

const PipeWireLibrary* LoadPipeWire() {
    static const std::optional<PipeWireLibrary> library = Load();
    return library ? &*library : nullptr;
}

}  // namespace tamlo
