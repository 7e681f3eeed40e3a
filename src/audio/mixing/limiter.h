// Keeps the sum of all sounds inside the range of the output.
#pragma once

namespace tamlo {

/// A peak limiter for both ears together. As long as nothing exceeds -3 dBFS it changes nothing at
/// all; a peak above is bent softly below -1.5 dBFS, and what follows is turned down as much for
/// a moment, so that loud passages are quieter rather than distorted.
class Limiter {
  public:
    void Process(float* stereo, int frames) noexcept;

  private:
    float peak_ = 0;  ///< the highest of the last moment, falling slowly; 0 below the threshold
};

}  // namespace tamlo
