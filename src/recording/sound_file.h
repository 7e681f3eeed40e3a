// A sound file that is written from start to end: FLAC or WAV, by its name.
#pragma once

#include <memory>
#include <span>
#include <string>

namespace tamlo {

/// 16 bits a sample, stereo, at the rate of the audio stream.
class SoundFile {
  public:
    /// Replaces a file of that name; the ending .flac or .wav says which kind. Throws
    /// std::runtime_error for any other ending and for a file that can't be written.
    explicit SoundFile(const std::string& path);
    ~SoundFile();
    SoundFile(SoundFile&&) noexcept;

    /// Appends frames, interleaved, full scale at -1 and 1; what goes beyond is clipped. Throws
    /// std::runtime_error when the disk is full.
    void Write(std::span<const float> stereo);
    /// Completes the file. Throws std::runtime_error when that fails; the file is no good then.
    void Close();

  private:
    struct File;
    std::unique_ptr<File> file_;
};

}  // namespace tamlo
