// Test signals, wave files and measurements for the mixing tests.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tamlo {

/// A sine of amplitude 1.
std::vector<float> Tone(double hertz, int rate, int count);

/// What a least-squares fit of a sine finds in a signal.
struct ToneFit {
    double level = 0;            ///< decibels relative to amplitude 1
    double signal_to_noise = 0;  ///< decibels; everything but the sine is noise
};

/// `frequency` in cycles a sample.
ToneFit FitTone(const std::vector<float>& signal, double frequency);

/// The number in so many bytes, lowest first.
std::string Number(std::uint32_t value, int bytes);
/// A chunk of a wave file, with its pad byte.
std::string Chunk(const std::string& id, const std::string& content);
/// The chunk that tells the format; PCM unless `kind` says otherwise.
std::string FormatChunk(int channels, int rate, int bits, int kind = 1);
/// A wave file of these chunks.
std::string Riff(const std::string& chunks);
/// A whole 16-bit wave file of values from -1 to 1.
std::string WaveBytes(int rate, int channels, const std::vector<float>& values);

/// A folder of its own for wave files, removed at the end.
class WaveFolder {
  public:
    WaveFolder();
    ~WaveFolder();
    WaveFolder(const WaveFolder&) = delete;
    WaveFolder& operator=(const WaveFolder&) = delete;

    const std::string& Path() const { return path_; }
    void Write(const std::string& name, const std::string& bytes) const;

  private:
    std::string path_;
};

}  // namespace tamlo
