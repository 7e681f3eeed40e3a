// libflite, loaded while the program runs.
#include "audio/voice/flite_library.h"

#include <dlfcn.h>

#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

#include "linux/system/library_function.h"

namespace tamlo {

namespace {

struct CloseLibrary {
    void operator()(void* library) const { dlclose(library); }
};
using LibraryHandle = std::unique_ptr<void, CloseLibrary>;

/// The file of a voice, beside the library.
std::filesystem::path FileOf(const char* voice, const FliteLibrary& library) {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(library.flite_init), &info) == 0) return {};
    const std::string name = std::string("libflite_") + voice + ".so.1";
    return std::filesystem::path(info.dli_fname).parent_path() / name;
}

}  // namespace

FliteLibrary::FliteLibrary(const char* name) {
    LibraryHandle handle(dlopen(name, RTLD_NOW | RTLD_LOCAL));
    if (!handle) return;
    complete = true;
    auto find = [this, &handle](auto& function, const char* symbol) {
        complete = FindFunction(handle.get(), symbol, function) && complete;
    };
#define TAMLO_FIND(function) find(function, #function)
    TAMLO_FIND(flite_init);
    TAMLO_FIND(flite_do_synth);
    TAMLO_FIND(new_utterance);
    TAMLO_FIND(delete_utterance);
    TAMLO_FIND(utt_set_input_text);
    TAMLO_FIND(utt_relation);
    TAMLO_FIND(utt_synth);
    TAMLO_FIND(feat_set);
    TAMLO_FIND(feat_val);
    TAMLO_FIND(uttfunc_val);
    TAMLO_FIND(item_feat_float);
    TAMLO_FIND(item_feat_string);
    TAMLO_FIND(item_set_float);
    TAMLO_FIND(new_audio_streaming_info);
    TAMLO_FIND(audio_streaming_info_val);
    TAMLO_FIND(val_track);
    TAMLO_FIND(val_cg_db);
    TAMLO_FIND(cg_db_val);
    TAMLO_FIND(cg_synth);
    TAMLO_FIND(mlpg);
    TAMLO_FIND(delete_track);
    TAMLO_FIND(mlsa_resynthesis);
    TAMLO_FIND(delete_wave);
#undef TAMLO_FIND
    if (complete) static_cast<void>(handle.release());
}

bool FliteLibrary::HasVoice(const char* voice) const {
    std::error_code ignored;
    return std::filesystem::exists(FileOf(voice, *this), ignored);
}

cst_voice* FliteLibrary::LoadVoice(const char* voice) const {
    LibraryHandle handle(dlopen(FileOf(voice, *this).c_str(), RTLD_NOW | RTLD_LOCAL));
    if (!handle) return nullptr;
    cst_voice* (*make)(const char*) = nullptr;
    FindFunction(handle.get(), (std::string("register_") + voice).c_str(), make);
    cst_voice* const made = make != nullptr ? make(nullptr) : nullptr;
    if (made != nullptr) static_cast<void>(handle.release());
    return made;
}

}  // namespace tamlo
