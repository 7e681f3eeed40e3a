// Rendering of one sound: a window of its samples is laid out, looped or bounded by silence, and
// interpolated; each ear then takes its share.
#include "audio/mixing/playhead.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tamlo {
namespace {

// 200,000 samples a second at most, against 48,000 of the stream: five samples a frame.
constexpr int window_size = 5 * longest_piece + sinc_span;

float Gain(int attenuation) {
    if (attenuation >= 10000) return 0;
    return static_cast<float>(std::pow(10.0, -attenuation / 2000.0));
}

}  // namespace

Gains GainsFor(int volume, int pan) {
    const float both = Gain(-std::clamp(volume, -10000, 0));
    pan = std::clamp(pan, -10000, 10000);
    return {both * Gain(std::max(pan, 0)), both * Gain(std::max(-pan, 0))};
}

void Playhead::Glide::Begin(float goal, int frames) {
    target = goal;
    if (frames == 0) value = goal;
    slope = frames == 0 ? 0 : (goal - value) / static_cast<float>(frames);
}

void Playhead::Glide::Advance(int frames, bool arrived) {
    value = arrived ? target : value + slope * static_cast<float>(frames);
    if (arrived) slope = 0;
}

void Playhead::Glide::Add(const float* values, int frames, float* out) const {
    if (slope == 0) {
        for (int i = 0; i < frames; ++i) out[i] += values[i] * value;
    } else {
        for (int i = 0; i < frames; ++i) {
            out[i] += values[i] * (value + slope * static_cast<float>(i));
        }
    }
}

Playhead::Playhead(const WaveData& wave) : wave_(&wave), target_step_(StepFor(wave.rate)) {
    walk_.step = target_step_;
}

void Playhead::SetGains(Gains gains, int glide) {
    left_.Begin(gains.left, glide);
    right_.Begin(gains.right, glide);
    gain_glide_ = glide;
}

void Playhead::SetStep(std::int64_t step, int glide) {
    target_step_ = step;
    step_glide_ = glide;
    walk_.slope = glide == 0 ? 0 : (step - walk_.step) / glide;
    if (glide == 0) walk_.step = step;
}

bool Playhead::AtEnd() const {
    return !looping_ && walk_.position >= wave_->Frames() * fixed_one;
}

int Playhead::FramesLeft(int limit) const {
    const std::int64_t end = wave_->Frames() * fixed_one;
    const std::int64_t highest_step = std::max(walk_.step, target_step_);
    if (looping_ || walk_.position + limit * highest_step < end) return limit;
    Walk walk = walk_;
    int frames = 0;
    for (; frames < limit && walk.position < end; ++frames) {
        walk.position += walk.step;
        if (frames + 1 < step_glide_) {
            walk.step += walk.slope;
        } else {
            walk.step = target_step_;
        }
    }
    return frames;
}

void Playhead::Render(Interpolator interpolate, float* left, float* right, int frames) {
    while (frames > 0) {
        const int piece = LengthOfPiece(frames);
        RenderPiece(interpolate, left, right, piece);
        MoveOn(piece);
        left += piece;
        right += piece;
        frames -= piece;
    }
}

void Playhead::Pass(int frames) {
    while (frames > 0) {
        const int piece = LengthOfPiece(frames);
        MoveOn(piece);
        frames -= piece;
    }
}

/// A glide ends with a piece.
int Playhead::LengthOfPiece(int frames) const {
    if (gain_glide_ > 0) frames = std::min(frames, gain_glide_);
    if (step_glide_ > 0) frames = std::min(frames, step_glide_);
    return frames;
}

void Playhead::RenderPiece(Interpolator interpolate, float* left, float* right, int frames) const {
    const std::int64_t first = (walk_.position >> fixed_bits) - sinc_before;
    const std::int64_t highest_step = std::max(walk_.step, target_step_);
    const auto count = static_cast<int>((highest_step * frames) >> fixed_bits) + sinc_span + 1;
    std::array<float, window_size> window;
    std::array<float, longest_piece> values;
    for (int channel = 0; channel < wave_->channels; ++channel) {
        Gather(first, count, channel, window.data());
        Walk walk = walk_;
        walk.position -= first * fixed_one;
        interpolate(window.data(), walk, frames, values.data());
        if (channel == 0) left_.Add(values.data(), frames, left);
        if (channel == wave_->channels - 1) right_.Add(values.data(), frames, right);
    }
}

void Playhead::MoveOn(int frames) {
    walk_.Pass(frames);
    if (looping_) walk_.position %= wave_->Frames() * fixed_one;

    const bool step_arrived = step_glide_ <= frames;
    step_glide_ = step_arrived ? 0 : step_glide_ - frames;
    if (step_arrived) {
        walk_.step = target_step_;
        walk_.slope = 0;
    }
    const bool gains_arrived = gain_glide_ <= frames;
    gain_glide_ = gains_arrived ? 0 : gain_glide_ - frames;
    left_.Advance(frames, gains_arrived);
    right_.Advance(frames, gains_arrived);
}

// Lays out samples from frame `first` on, which may lie before the sound's start.
void Playhead::Gather(std::int64_t first, int count, int channel, float* out) const {
    const std::int64_t frames = wave_->Frames();
    if (looping_) {
        first = (first % frames + frames) % frames;
        while (count > 0) {
            const int run = static_cast<int>(std::min<std::int64_t>(count, frames - first));
            Copy(first, run, channel, out);
            out += run;
            count -= run;
            first = 0;
        }
        return;
    }
    const auto before = static_cast<int>(std::clamp<std::int64_t>(-first, 0, count));
    const auto inside =
        static_cast<int>(std::clamp<std::int64_t>(frames - (first + before), 0, count - before));
    std::fill_n(out, before, 0.0F);
    Copy(first + before, inside, channel, out + before);
    std::fill_n(out + before + inside, count - before - inside, 0.0F);
}

void Playhead::Copy(std::int64_t first, int count, int channel, float* out) const {
    constexpr float unit = 1.0F / 32768;
    const int stride = wave_->channels;
    const std::int16_t* samples = wave_->samples.data() + first * stride + channel;
    if (stride == 1) {  // apart, so that the compiler can take many at a time
        for (int i = 0; i < count; ++i) out[i] = static_cast<float>(samples[i]) * unit;
    } else {
        for (int i = 0; i < count; ++i) out[i] = static_cast<float>(samples[2 * i]) * unit;
    }
}

}  // namespace tamlo
