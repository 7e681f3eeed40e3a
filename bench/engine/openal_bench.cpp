// The same work as the mixer's, done by OpenAL Soft with the best of its resamplers: what a game
// would get that brings no mixer of its own.
#define AL_ALEXT_PROTOTYPES
#include <AL/al.h>
#include <AL/alc.h>
#include <AL/alext.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "audio/mixing/source.h"
#include "audio/mixing_signals.h"

namespace tamlo {
namespace {

constexpr int block = 256;

/// A device that renders into memory. One at a time.
class OpenAl {
  public:
    OpenAl() {
        const ALCint attributes[] = {ALC_FORMAT_CHANNELS_SOFT,
                                     ALC_STEREO_SOFT,
                                     ALC_FORMAT_TYPE_SOFT,
                                     ALC_FLOAT_SOFT,
                                     ALC_FREQUENCY,
                                     stream_rate,
                                     ALC_HRTF_SOFT,
                                     ALC_FALSE,
                                     ALC_MONO_SOURCES,
                                     256,
                                     0};
        device_ = alcLoopbackOpenDeviceSOFT(nullptr);
        context_ = alcCreateContext(device_, attributes);
        alcMakeContextCurrent(context_);
        alDistanceModel(AL_NONE);
        for (ALint i = 0; i < alGetInteger(AL_NUM_RESAMPLERS_SOFT); ++i) {
            const char* name = alGetStringiSOFT(AL_RESAMPLER_NAME_SOFT, i);
            if (std::strstr(name, "23rd order Sinc") == name) resampler_ = i;
        }
    }
    OpenAl(const OpenAl&) = delete;
    OpenAl& operator=(const OpenAl&) = delete;
    ~OpenAl() {
        alcMakeContextCurrent(nullptr);
        alcDestroyContext(context_);
        alcCloseDevice(device_);
    }

    bool Works() const { return context_ != nullptr && resampler_ >= 0; }

    ALuint Loop(const std::vector<std::int16_t>& samples, int rate) const {
        ALuint buffer = 0;
        ALuint source = 0;
        alGenBuffers(1, &buffer);
        alBufferData(buffer, AL_FORMAT_MONO16, samples.data(),
                     static_cast<ALsizei>(samples.size() * sizeof samples[0]), rate);
        alGenSources(1, &source);
        alSourcei(source, AL_BUFFER, static_cast<ALint>(buffer));
        alSourcei(source, AL_LOOPING, AL_TRUE);
        alSourcei(source, AL_SOURCE_RELATIVE, AL_TRUE);
        alSourcei(source, AL_SOURCE_RESAMPLER_SOFT, resampler_);
        return source;
    }

    void Render(float* stereo, int frames) const { alcRenderSamplesSOFT(device_, stereo, frames); }

  private:
    ALCdevice* device_ = nullptr;
    ALCcontext* context_ = nullptr;
    ALint resampler_ = -1;
};

std::vector<std::int16_t> Samples(const std::vector<float>& tone) {
    std::vector<std::int16_t> samples;
    for (const float value : tone) {
        samples.push_back(static_cast<std::int16_t>(std::lrint(value * 32767)));
    }
    return samples;
}

// Pan and pitch get a new goal every 16 ms, as in the benchmark of the mixer.
void MixingOpenAl(benchmark::State& state) {
    const OpenAl openal;
    if (!openal.Works()) return state.SkipWithError("no OpenAL Soft with its best resampler");
    const auto samples = Samples(Tone(351, 22050, 44100));
    std::vector<ALuint> sources;
    for (int i = 0; i < state.range(0); ++i) sources.push_back(openal.Loop(samples, 22050));
    alSourcePlayv(static_cast<ALsizei>(sources.size()), sources.data());
    std::vector<float> stereo(2 * block);
    int moves = 0;
    for (auto second : state) {
        static_cast<void>(second);
        for (int i = 0; i < stream_rate / block; ++i) {
            if (i % 3 == 0) {
                ++moves;
                const double angle = moves % 60 / 60.0 - 0.5;
                for (const ALuint source : sources) {
                    alSource3f(source, AL_POSITION, static_cast<ALfloat>(std::sin(angle)), 0,
                               static_cast<ALfloat>(-std::cos(angle)));
                    alSourcef(source, AL_PITCH,
                              static_cast<ALfloat>(11000 + moves * 100 % 20000) / 22050);
                }
            }
            openal.Render(stereo.data(), block);
            benchmark::DoNotOptimize(stereo.data());
        }
    }
}

// Signal to noise of a tone in 22,050 Hz material, in dB.
void TonesOpenAl(benchmark::State& state) {
    const OpenAl openal;
    if (!openal.Works()) return state.SkipWithError("no OpenAL Soft with its best resampler");
    constexpr int rate = 22050;
    const auto hertz = static_cast<double>(state.range(0));
    const ALuint source = openal.Loop(Samples(Tone(hertz, rate, rate)), rate);
    alSourcePlay(source);
    std::vector<float> stereo(2 * 20000);
    for (auto once : state) {
        static_cast<void>(once);
        openal.Render(stereo.data(), 4800);
        openal.Render(stereo.data(), 20000);
    }
    std::vector<float> left;
    for (std::size_t i = 0; i < stereo.size(); i += 2) left.push_back(stereo[i]);
    // Its pitch comes in steps of 1/4096: the tone is heard beside where it should be.
    double best = 0;
    for (const double step :
         {std::floor(rate * 4096.0 / stream_rate), std::ceil(rate * 4096.0 / stream_rate)}) {
        best = std::max(best, FitTone(left, hertz / rate * step / 4096).signal_to_noise);
    }
    state.counters["dB"] = best;
}

BENCHMARK(MixingOpenAl)->Arg(8)->Arg(64)->Unit(benchmark::kMillisecond);
BENCHMARK(TonesOpenAl)->Arg(400)->Arg(1000)->Arg(3000)->Arg(6000)->Arg(9000)->Iterations(1);

}  // namespace
}  // namespace tamlo
