// The functions of libflite, as the edition finds them. Without the library players have fewer
// voices, and nothing else changes.
#pragma once

// The headers only: nothing is linked.
#include <flite/flite.h>
extern "C" {
#include <flite/cst_cg.h>
}

namespace tamlo {

/// The functions of the library that are used, by the names that it gives them. Once loaded it
/// stays.
struct FliteLibrary {
    /// `name`: the library's file name, looked for where the system has its libraries.
    explicit FliteLibrary(const char* name);
    /// Whether all of it is there. If not, nothing may be called.
    explicit operator bool() const { return complete; }

    /// Whether a voice of this name is installed.
    bool HasVoice(const char* voice) const;
    /// Null if it can't be loaded; once loaded it stays.
    cst_voice* LoadVoice(const char* voice) const;

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
