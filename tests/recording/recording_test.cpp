// Recordings: the same bytes every time, the lines of the rehearsal, and nothing heard but what is
// played.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <regex>
#include <sstream>

#include "recording/mix_measures.h"
#include "recording/recorded_game.h"
#include "rehearsed_game.h"
#include "text/printable.h"

namespace tamlo {
namespace {

constexpr const char* first_block = R"(
    clock 2015-03-05 12:00:00
    draw 0 0 0.365 0.42 0.5
    press enter
    press enter 3 5
    upon "You are at" enter
    press down down
)";

/// The spoken lines of a WebVTT: those that are neither times nor captions.
std::vector<std::string> SpokenLines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    std::string line;
    std::getline(in, line);
    while (std::getline(in, line))
        if (!line.empty() && line[0] != '[' && line.find(" --> ") == line.npos)
            lines.push_back(line);
    return lines;
}

std::vector<std::string> SpokenLines(const Performance& trace) {
    std::vector<std::string> lines;
    for (const std::string& text : trace.Spoken())
        if (const std::string shown = PrintableLine(text); !shown.empty()) lines.push_back(shown);
    return lines;
}

/// By the program: an engine that has spoken before says the same words a little differently.
TEST(Recording, GivesTheSameBytesAgain) {
    const TemporaryFolder folder;
    folder.Write("script.txt", first_block);
    const auto record = [&](const std::string& name) {
        const std::string command = TAMLO_RECORD " --sounds " SOUND_SET " " + folder.Path() +
                                    "/script.txt " + folder / (name + ".flac");
        ASSERT_EQ(std::system(command.c_str()), 0);
    };
    record("one");
    record("other");
    EXPECT_GT(folder.Content("one.flac").size(), 100'000U);
    EXPECT_TRUE(folder.Content("one.flac") == folder.Content("other.flac"));
    EXPECT_EQ(folder.Content("one.vtt"), folder.Content("other.vtt"));
}

TEST(Recording, HasTheRehearsalsLinesInOrder) {
    const RecordedTrip trip = RecordTrip(first_block);
    RehearsedGame game;
    EXPECT_EQ(SpokenLines(trip.lines), SpokenLines(game.Run(first_block)));
    EXPECT_THAT(trip.lines, testing::HasSubstr("[title tune]"));
    EXPECT_TRUE(std::regex_search(
        trip.lines, std::regex("\n00:0[0-9]:[0-9.]+ --> 00:0[0-9]:[0-9.]+\nstart game\n")));
}

TEST(Recording, IsTheSumOfItsStems) {
    const RecordedTrip trip = RecordTrip(first_block);
    ASSERT_EQ(trip.voice.size(), trip.mix.size());
    ASSERT_EQ(trip.effects.size(), trip.mix.size());
    float furthest = 0;
    for (std::size_t i = 0; i < trip.mix.size(); ++i) {
        const float sum = trip.voice[i] + trip.effects[i] + trip.backgrounds[i];
        // Above the threshold of the limiter the mix is quieter than its stems.
        if (std::abs(sum) < 0.4F) furthest = std::max(furthest, std::abs(sum - trip.mix[i]));
    }
    EXPECT_LT(furthest, 0.2F);
    EXPECT_GT(PeakOf(trip.voice), 0.1F);
    EXPECT_GT(PeakOf(trip.effects), 0.1F);
    EXPECT_GT(PeakOf(trip.backgrounds), 0.01F);
}

TEST(Recording, RefusesWhatItCannotWrite) {
    EXPECT_THROW(RecordTrip(first_block, ".mp3"), std::runtime_error);
    EXPECT_THROW(SoundFile("/no/such/folder/x.flac"), std::runtime_error);
}

TEST(CueSheet, KeepsWhatIsCutAndTheOrderOfBegins) {
    CueSheet cues;
    cues.AddSpeech("a < b & c", 0, 250);
    cues.AddSpeech("never heard", 250, 300);
    cues.AddCaption("[beep]", 50);
    cues.CutSpeech(100);
    EXPECT_EQ(cues.Text(),
              "WEBVTT\n"
              "\n00:00:00.000 --> 00:00:01.000\na &lt; b &amp; c\n"
              "\n00:00:00.500 --> 00:00:02.500\n[beep]\n"
              "\n00:00:01.000 --> 00:00:01.010\nnever heard\n");
}

}  // namespace
}  // namespace tamlo
