// libpipewire, loaded while the program runs: a machine without PipeWire need not have it.
#pragma once

#include <pipewire/pipewire.h>

namespace tamlo {

/// The functions that are used, under the library's own names.
struct PipeWireLibrary {
    decltype(&::pw_init) pw_init{};
    decltype(&::pw_properties_new_dict) pw_properties_new_dict{};
    decltype(&::pw_thread_loop_new) pw_thread_loop_new{};
    decltype(&::pw_thread_loop_destroy) pw_thread_loop_destroy{};
    decltype(&::pw_thread_loop_start) pw_thread_loop_start{};
    decltype(&::pw_thread_loop_stop) pw_thread_loop_stop{};
    decltype(&::pw_thread_loop_lock) pw_thread_loop_lock{};
    decltype(&::pw_thread_loop_unlock) pw_thread_loop_unlock{};
    decltype(&::pw_thread_loop_get_loop) pw_thread_loop_get_loop{};
    decltype(&::pw_context_new) pw_context_new{};
    decltype(&::pw_context_destroy) pw_context_destroy{};
    decltype(&::pw_context_connect) pw_context_connect{};
    decltype(&::pw_core_disconnect) pw_core_disconnect{};
    decltype(&::pw_proxy_destroy) pw_proxy_destroy{};
    decltype(&::pw_stream_new) pw_stream_new{};
    decltype(&::pw_stream_destroy) pw_stream_destroy{};
    decltype(&::pw_stream_add_listener) pw_stream_add_listener{};
    decltype(&::pw_stream_connect) pw_stream_connect{};
    decltype(&::pw_stream_update_properties) pw_stream_update_properties{};
    decltype(&::pw_stream_dequeue_buffer) pw_stream_dequeue_buffer{};
    decltype(&::pw_stream_queue_buffer) pw_stream_queue_buffer{};
    decltype(&::pw_stream_get_time_n) pw_stream_get_time_n{};
};

/// The library, ready to use and never unloaded; null if it is not installed. For one thread.
const PipeWireLibrary* LoadPipeWire();

}  // namespace tamlo
