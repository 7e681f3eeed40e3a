// What the mixer costs: milliseconds of one core for a second of audio.
#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <vector>

#include "audio/mixing/mixer.h"
#include "audio/mixing_signals.h"

namespace tamlo {
namespace {

constexpr int block = 256;
constexpr int blocks_a_second = stream_rate / block;

std::shared_ptr<const WaveData> TwoSeconds() {
    WaveData wave{22050, 1, {}};
    for (int i = 0; i < 44100; ++i) {
        wave.samples.push_back(static_cast<std::int16_t>(2000 * std::sin(0.1 * i)));
    }
    return std::make_shared<const WaveData>(std::move(wave));
}

// Loops whose pan and pitch get a new goal every 16 ms, so that they glide a third of the time:
// faster than any movement in the game.
void Mixing(benchmark::State& state, Instructions instructions) {
    Mixer mixer(instructions);
    const auto wave = TwoSeconds();
    std::vector<TrackHandle> tracks;
    for (int i = 0; i < state.range(0); ++i) {
        tracks.push_back(mixer.Add(wave));
        mixer.Seek(*tracks.back(), 600 * i);
        mixer.Play(*tracks.back(), PlayMode::looping, 1);
    }
    std::vector<float> stereo(2 * block);
    int moves = 0;
    for (auto second : state) {
        static_cast<void>(second);
        for (int i = 0; i < blocks_a_second; ++i) {
            if (i % 3 == 0) {
                ++moves;
                for (const TrackHandle& track : tracks) {
                    mixer.SetGains(*track, GainsFor(-500, moves * 50 % 3000 - 1500));
                    mixer.SetFrequency(*track, 11000 + moves * 100 % 20000);
                }
            }
            mixer.Mix(stereo.data(), block);
            benchmark::DoNotOptimize(stereo.data());
        }
    }
}

void MixingBest(benchmark::State& state) {
    Mixing(state, BestInstructions());
}
void MixingPortable(benchmark::State& state) {
    Mixing(state, Instructions::portable);
}

// Signal to noise of a tone in 22,050 Hz material, in dB.
void Tones(benchmark::State& state) {
    constexpr int rate = 22050;
    const auto hertz = static_cast<double>(state.range(0));
    const std::vector<float> tone = Tone(hertz, rate, rate);
    std::vector<float> out(20000);
    for (auto once : state) {
        static_cast<void>(once);
        Walk walk{1000 * fixed_one, StepFor(rate), 0};
        SelectInterpolator(BestInstructions())(tone.data(), walk, static_cast<int>(out.size()),
                                               out.data());
    }
    state.counters["dB"] = FitTone(out, hertz / stream_rate).signal_to_noise;
}

BENCHMARK(MixingBest)->Arg(0)->Arg(1)->Arg(8)->Arg(64)->Unit(benchmark::kMillisecond);
BENCHMARK(Tones)->Arg(400)->Arg(1000)->Arg(3000)->Arg(6000)->Arg(9000)->Iterations(1);
BENCHMARK(MixingPortable)->Arg(1)->Arg(8)->Arg(64)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tamlo
