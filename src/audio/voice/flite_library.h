// libflite, loaded when the program runs: players without it have fewer voices, and nothing else
// changes.
#pragma once

// The headers only: nothing is linked.
#include <flite/flite.h>
extern "C" {
#include <flite/cst_cg.h>
}

#include <filesystem>
#include <memory>

namespace tamlo {

struct CloseLibrary {
    void operator()(void* library) const;
};
/// Of a library loaded by dlopen.
using LibraryHandle = std::unique_ptr<void, CloseLibrary>;

/// The functions of the library that are used, by the names that it gives them. Once loaded it
/// stays.
struct FliteLibrary {
    /// `name`: the library's file name, looked for where the system has its libraries.
    explicit FliteLibrary(const char* name);
    /// Whether all of it is there. If not, nothing may be called.
    explicit operator bool() const { return complete; }

    /// Where the library lies, and its voices with it.
    std::filesystem::path Folder() const;

    bool complete = false;

    decltype(&::flite_init) flite_init{};
    decltype(&::flite_do_synth) flite_do_synth{};
    decltype(&::new_utterance) new_utterance{};
    decltype(&::delete_utterance) delete_utterance{};
    decltype(&::utt_set_input_text) utt_set_input_text{};
    decltype(&::utt_relation) utt_relation{};
    decltype(&::utt_synth) utt_synth{};
    decltype(&::feat_set) feat_set{};
    decltype(&::feat_val) feat_val{};
    decltype(&::uttfunc_val) uttfunc_val{};
    decltype(&::item_feat_float) item_feat_float{};
    decltype(&::item_feat_string) item_feat_string{};
    decltype(&::item_set_float) item_set_float{};
    decltype(&::new_audio_streaming_info) new_audio_streaming_info{};
    decltype(&::audio_streaming_info_val) audio_streaming_info_val{};
    decltype(&::val_track) val_track{};
    decltype(&::val_cg_db) val_cg_db{};
    decltype(&::cg_db_val) cg_db_val{};
    decltype(&::cg_synth) cg_synth{};
    decltype(&::mlpg) mlpg{};
    decltype(&::delete_track) delete_track{};
    decltype(&::mlsa_resynthesis) mlsa_resynthesis{};
    decltype(&::delete_wave) delete_wave{};
};

}  // namespace tamlo
