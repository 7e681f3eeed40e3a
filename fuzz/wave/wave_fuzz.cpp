// Any bytes as a wave file: refused, or a sound that keeps its promises and can be played.
#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>

#include "audio/mixing/mixer.h"
#include "audio/mixing/wave_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace tamlo;
    auto wave = ReadWave({reinterpret_cast<const char*>(bytes), size});
    if (!wave) return 0;
    const auto frame = static_cast<std::size_t>(wave->channels);
    const bool sound = (frame == 1 || frame == 2) && wave->rate >= 100 && wave->rate <= 200000 &&
                       wave->samples.size() % frame == 0 && wave->samples.size() <= size;
    if (!sound) std::abort();
    if (wave->samples.empty()) return 0;

    static Mixer mixer;
    TrackHandle track = mixer.Add(std::make_shared<const WaveData>(std::move(*wave)));
    std::array<float, 200> stereo{};
    for (const PlayMode mode : {PlayMode::once, PlayMode::looping}) {
        mixer.Play(*track, mode, mode == PlayMode::once ? 1 : 2);
        mixer.Mix(stereo.data(), static_cast<int>(stereo.size() / 2));
        for (const float value : stereo) {
            if (!(value >= -1 && value <= 1)) std::abort();
        }
    }
    track.reset();
    mixer.Mix(stereo.data(), 1);
    return 0;
}
