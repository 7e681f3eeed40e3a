#include "audio/voice/flite_sentence.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace tamlo {
namespace {

/// So many phones at once: few at first, so that they are heard soon.
constexpr std::size_t first_phones = 4;
constexpr std::size_t more_phones = 5;
/// How many on either side a phone is coloured by.
constexpr std::size_t context = 2;
constexpr double guessed_length = 0.085;
/// What is kept of the silence before the first phone and after the last, in seconds.
constexpr double kept_before = 0.01;
constexpr double kept_behind = 0.03;

cst_utterance* NoSound(cst_utterance* utterance) {
    return utterance;
}

int Stop(const cst_wave*, int, int, int, cst_audio_streaming_info*) {
    return CST_AUDIO_STREAM_STOP;
}

/// A list of the library's that for a while has but some of its items.
class Excerpt {
  public:
    Excerpt(cst_relation& list, cst_item& first, cst_item& last)
        : list_(list), last_(last), head_(list.head), tail_(list.tail), behind_(last.n) {
        list_.head = &first;
        list_.tail = &last;
        last_.n = nullptr;
    }
    ~Excerpt() {
        list_.head = head_;
        list_.tail = tail_;
        last_.n = behind_;
    }
    Excerpt(const Excerpt&) = delete;
    Excerpt& operator=(const Excerpt&) = delete;

  private:
    cst_relation& list_;
    cst_item& last_;
    cst_item* head_;
    cst_item* tail_;
    cst_item* behind_;
};

}  // namespace

FliteModel::FliteModel(const FliteLibrary& library, cst_voice& its_voice, const FliteVoice& entry)
    : voice(its_voice),
      sounds(*library.val_cg_db(library.feat_val(voice.features, "cg_db"))),
      length(static_cast<double>(entry.length)) {
    sounds.gain *= entry.level;
    // A melody of whole phrases, which some voices have, can't be found for a part.
    sounds.spamf0 = 0;
    library.feat_set(voice.features, "cg_db", library.cg_db_val(&sounds));
    library.feat_set(voice.features, "wave_synth_func", library.uttfunc_val(NoSound));
}

FliteSentence::FliteSentence(const FliteLibrary& library, FliteModel& model,
                             const std::string& text)
    : library_(library), model_(model), utterance_(library.new_utterance()) {
    library_.utt_set_input_text(utterance_, text.c_str());
    if (library_.flite_do_synth(utterance_, &model_.voice, library_.utt_synth) == nullptr) {
        utterance_ = nullptr;  // The library has deleted it.
        return;
    }
    // The sounds are wanted as frames: making samples of them as well is broken off.
    cst_audio_streaming_info* const info = library_.new_audio_streaming_info();
    info->asc = Stop;
    info->min_buffsize = 1;
    library_.feat_set(utterance_->features, "streaming_info",
                      library_.audio_streaming_info_val(info));
    double end = 0;
    for (cst_item* item = library_.utt_relation(utterance_, "Segment")->head; item != nullptr;
         item = item->n) {
        phones_.push_back({item, end += guessed_length});
    }
    auto is_pause = [&](const Phone& phone) {
        return std::string_view(library_.item_feat_string(phone.item, "name")) == "pau";
    };
    spoken_ = phones_.size();
    if (spoken_ > 0 && is_pause(phones_[spoken_ - 1])) --spoken_;
    if (spoken_ > 0 && is_pause(phones_[0])) next_ = 1;
}

FliteSentence::~FliteSentence() {
    if (utterance_ != nullptr) library_.delete_utterance(utterance_);
}

bool FliteSentence::Next(std::vector<float>& frames) {
    if (next_ >= spoken_) return false;
    const bool opening = next_ <= 1;
    const std::size_t end = std::min(next_ + (opening ? first_phones : more_phones), spoken_);
    const std::size_t first = next_ - std::min(next_, context);
    const double start = first > 0 ? phones_[first - 1].end : 0;
    MakeSounds(first, std::min(end + context, phones_.size()));

    double from = (next_ > 0 ? phones_[next_ - 1].end : 0) - start;
    double to = phones_[end - 1].end - start;
    if (opening) from = std::max(from - kept_before, 0.0);
    if (end == spoken_) to += kept_behind;
    Append(from, to, frames);
    next_ = end;
    return true;
}

/// Gives the phones their sounds, with the times of all others as if the sentence began with them.
void FliteSentence::MakeSounds(std::size_t first, std::size_t end) {
    const double start = first > 0 ? phones_[first - 1].end : 0;
    for (const Phone& phone : phones_) {
        library_.item_set_float(phone.item, "end", static_cast<float>(phone.end - start));
    }
    {
        Excerpt excerpt(*library_.utt_relation(utterance_, "Segment"), *phones_[first].item,
                        *phones_[end - 1].item);
        library_.cg_synth(utterance_);
    }
    const double guessed = phones_[end - 1].end;
    for (std::size_t i = first; i < end; ++i) {
        phones_[i].end = start + library_.item_feat_float(phones_[i].item, "end");
    }
    const double longer = phones_[end - 1].end - guessed;
    for (std::size_t i = end; i < phones_.size(); ++i) phones_[i].end += longer;
}

/// Seconds from the start of the first phone that has been given its sound.
void FliteSentence::Append(double from, double to, std::vector<float>& frames) {
    const cst_features* results = utterance_->features;
    const cst_track* bands = library_.val_track(library_.feat_val(results, "str_track"));
    cst_track* track = library_.mlpg(library_.val_track(library_.feat_val(results, "param_track")),
                                     &model_.sounds);
    shape_ = {track->num_channels, bands->num_channels};
    const int most = std::min(track->num_frames, bands->num_frames);
    const double shift = model_.sounds.frame_advance;
    const int end = std::min(static_cast<int>(std::lround(to / shift)), most);
    for (int i = static_cast<int>(std::lround(from / shift)); i < end; ++i) {
        frames.insert(frames.end(), track->frames[i], track->frames[i] + shape_.channels);
        frames.insert(frames.end(), bands->frames[i], bands->frames[i] + shape_.bands);
    }
    library_.delete_track(track);
}

}  // namespace tamlo
