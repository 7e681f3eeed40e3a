// The interpolation: how clean its tones are, and that blocks and edges leave no trace.
#include "audio/mixing/sinc.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

#include "audio/mixing/source.h"
#include "audio/mixing_signals.h"

namespace tamlo {
namespace {

// All that this processor has.
std::vector<Instructions> AllInstructions() {
    std::vector<Instructions> all;
    for (const auto instructions : {Instructions::portable, Instructions::avx2}) {
        if (instructions <= BestInstructions()) all.push_back(instructions);
    }
    return all;
}

TEST(Interpolation, KeepsTonesClean) {
    constexpr int rate = 22050;
    for (const Instructions instructions : AllInstructions()) {
        const Interpolator interpolate = SelectInterpolator(instructions);
        for (const double hertz : {400.0, 1000.0, 3000.0, 6000.0, 9000.0}) {
            const std::vector<float> tone = Tone(hertz, rate, rate);
            for (const int played : {10933, 22051, 31861}) {
                Walk walk{1000 * fixed_one, StepFor(played), 0};
                std::vector<float> out(20000);
                interpolate(tone.data(), walk, static_cast<int>(out.size()), out.data());
                const double heard = hertz * played / rate;
                const ToneFit fit = FitTone(out, heard / stream_rate);
                EXPECT_GE(fit.signal_to_noise, 99) << hertz << " Hz at " << played;
                EXPECT_NEAR(fit.level, 0.0, 0.01) << hertz << " Hz at " << played;
            }
        }
    }
}

TEST(Interpolation, IsTheSameForAllInstructionsAndCountsOfFrames) {
    const std::vector<float> tone = Tone(3000, 22050, 2000);
    for (int frames = 0; frames < 40; ++frames) {
        const Walk start{100 * fixed_one + 12345, StepFor(31861), 1000};
        Walk walk = start;
        std::vector<float> portable(static_cast<std::size_t>(frames) + 1, 7.0F);
        SelectInterpolator(Instructions::portable)(tone.data(), walk, frames, portable.data());
        for (const Instructions instructions : AllInstructions()) {
            Walk other_walk = start;
            std::vector<float> other(portable.size(), 7.0F);
            SelectInterpolator(instructions)(tone.data(), other_walk, frames, other.data());
            for (std::size_t i = 0; i < other.size(); ++i) EXPECT_NEAR(other[i], portable[i], 1e-6);
            EXPECT_EQ(other.back(), 7.0F);
            EXPECT_EQ(walk.position, other_walk.position);
            EXPECT_EQ(walk.step, other_walk.step);
        }
        EXPECT_EQ(walk.step, start.step + frames * start.slope);
    }
}

std::vector<std::int16_t> SpeechLikeSamples(std::size_t count) {
    std::vector<std::int16_t> samples;
    for (const float value : Tone(700, 22050, static_cast<int>(count))) {
        samples.push_back(static_cast<std::int16_t>(std::lrint(value * 20000)));
    }
    return samples;
}

TEST(Resampler, GivesTheSameHoweverTheStreamIsCut) {
    const std::vector<std::int16_t> samples = SpeechLikeSamples(5000);
    for (const int rate : {8000, 16000, 22050, 48000}) {
        Resampler resampler(rate);
        std::vector<float> whole;
        resampler.Process(samples.data(), samples.size(), whole);
        resampler.Finish(whole);
        const auto expected = std::ceil(5000.0 * stream_rate / rate);
        EXPECT_NEAR(static_cast<double>(whole.size()), expected, 1);

        for (const std::size_t block : {1UL, 20UL, 21UL, 22UL, 441UL, 4999UL}) {
            std::vector<float> pieces;
            for (std::size_t at = 0; at < samples.size(); at += block) {
                const std::size_t count = std::min(block, samples.size() - at);
                resampler.Process(samples.data() + at, count, pieces);
            }
            resampler.Finish(pieces);
            ASSERT_EQ(pieces.size(), whole.size()) << rate << ", " << block;
            for (std::size_t i = 0; i < whole.size(); ++i) {
                ASSERT_NEAR(pieces[i], whole[i], 1e-6) << rate << ", " << block;
            }
        }
    }
}

TEST(Resampler, NeitherDelaysNorLosesTheEdges) {
    Resampler resampler(24000);
    const std::vector<std::int16_t> click = {16384};
    std::vector<float> out;
    resampler.Process(click.data(), 1, out);
    EXPECT_TRUE(out.empty());
    resampler.Finish(out);
    ASSERT_EQ(out.size(), 2U);
    EXPECT_NEAR(out[0], 0.5, 0.001);

    resampler.Process(click.data(), 1, out);
    resampler.Reset();
    resampler.Finish(out);
    EXPECT_EQ(out.size(), 2U) << "nothing is left of a stream that was given up";
}

}  // namespace
}  // namespace tamlo
