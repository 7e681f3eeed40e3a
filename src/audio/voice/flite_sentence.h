// A sentence as a voice of libflite pronounces it, made a few sounds at a time.
#pragma once

#include <string>
#include <vector>

#include "audio/voice/flite_library.h"
#include "audio/voice/voices.h"

namespace tamlo {

/// A voice of the library and its model of how things sound.
struct FliteModel {
    /// Changes the voice so that it makes no sound of its own accord.
    FliteModel(const FliteLibrary& library, cst_voice& its_voice, const FliteVoice& entry);
    FliteModel(const FliteModel&) = delete;
    FliteModel& operator=(const FliteModel&) = delete;

    cst_voice& voice;
    cst_cg_db sounds;
    const double length;  ///< see FliteVoice
};

/// The library thinks about a whole sentence before its first sample: 10 ms for a few words, 200 ms
/// for a long one. What takes so long is the sound; stress and melody take little. So here they
/// are found for the sentence as a whole, and the sound is made for some phones after the other:
/// the first ones soon, and it can be broken off in between.
class FliteSentence {
  public:
    /// What the vocoder makes 5 ms from: the pitch in Hz, 0 for none, and the spectrum; then how
    /// strong the voice is in each of some bands.
    struct Shape {
        int channels = 0;
        int bands = 0;
        std::size_t Width() const {
            const int values = channels + bands;
            return static_cast<std::size_t>(values);
        }
    };

    /// `text`: a Sentence's, see sentences.h. The library and the model live longer.
    FliteSentence(const FliteLibrary& library, FliteModel& model, const std::string& text);
    ~FliteSentence();
    FliteSentence(const FliteSentence&) = delete;
    FliteSentence& operator=(const FliteSentence&) = delete;

    /// Appends the frames of the next phones, one after the other; false when the sentence is
    /// over. Silence at both ends is left out.
    bool Next(std::vector<float>& frames);
    /// Of frames, after the first ones.
    const Shape& FrameShape() const { return shape_; }

  private:
    struct Phone {
        cst_item* item;
        double end;  ///< seconds from the start; after the phones made so far a guess
    };

    void MakeSounds(std::size_t first, std::size_t end);
    void Append(double from, double to, std::vector<float>& frames);

    const FliteLibrary& library_;
    FliteModel& model_;
    cst_utterance* utterance_;
    std::vector<Phone> phones_;
    std::size_t next_ = 0;    ///< the first phone that has not been handed over
    std::size_t spoken_ = 0;  ///< the number of phones but for the silence at the end
    Shape shape_;
};

}  // namespace tamlo
