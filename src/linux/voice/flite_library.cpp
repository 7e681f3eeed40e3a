#include "audio/voice/flite_library.h"

#include <dlfcn.h>

#include "linux/system/library_function.h"

namespace tamlo {

void CloseLibrary::operator()(void* library) const {
    dlclose(library);
}

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

std::filesystem::path FliteLibrary::Folder() const {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(flite_init), &info) == 0) return {};
    return std::filesystem::path(info.dli_fname).parent_path();
}

}  // namespace tamlo
