// Whole pages of play, each a file: a script, a line of dashes, and the score that it has to give,
// with pauses and log; then the next run. All sounds last a second, so that a page does not change
// with the sounds. With TAMLO_WRITE_PAGES=1 in the environment the scores are written again, to be
// read before they are kept.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "rehearsed_game.h"
#include "scenarios/passages.h"
#include "scenarios/score.h"
#include "wave_maker.h"

namespace tamlo {
namespace {

/// The parts of a file between lines of dashes: script and score of a run, and of the next one.
std::vector<std::string> ReadPage(const std::string& file) {
    std::vector<std::string> parts(1);
    std::ifstream lines(file);
    for (std::string line; std::getline(lines, line);) {
        if (line == "----") {
            parts.emplace_back();
        } else {
            parts.back() += line + "\n";
        }
    }
    return parts;
}

void WritePage(const std::string& file, const std::vector<std::string>& parts) {
    std::ofstream page(file);
    for (std::size_t i = 0; i < parts.size(); ++i) page << (i > 0 ? "----\n" : "") << parts[i];
}

/// A second of silence under every name of the set.
void MakeSounds(const TemporaryFolder& folder) {
    const std::string second = SilentWave(22050, 22050);
    for (const auto& entry : std::filesystem::directory_iterator(TAMLO_SOUNDS)) {
        if (entry.path().extension() == ".wav") folder.Write(entry.path().filename(), second);
    }
}

/// What has been written to the player's log since it was `before`.
std::string LogSince(const std::string& before, std::string log) {
    if (log.starts_with(before)) log.erase(0, before.size());
    return log;
}

class Pages : public testing::TestWithParam<std::string> {};

TEST_P(Pages, GiveTheirScore) {
    const std::string file = std::string(TAMLO_PAGES "/") + GetParam() + ".txt";
    std::vector<std::string> parts = ReadPage(file);
    const Passages passages(TAMLO_PASSAGES);
    ASSERT_EQ(parts.size() % 2, 0u) << "a script without a score";
    const TemporaryFolder sounds;
    MakeSounds(sounds);
    RehearsedGame game;
    game.sounds = sounds.Path();
    for (std::size_t i = 0; i < parts.size(); i += 2) {
        const std::string before = game.Content("tamlolog.txt");
        std::string score = Score(game.Run(parts[i]));
        score = WithLog(std::move(score), LogSince(before, game.Content("tamlolog.txt")));
        EXPECT_EQ(score, passages.Unfolded(parts[i + 1]));
        parts[i + 1] = passages.Folded(score);
    }
    if (std::getenv("TAMLO_WRITE_PAGES")) WritePage(file, parts);
}

std::vector<std::string> AllPages() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(TAMLO_PAGES)) {
        names.push_back(entry.path().stem().string());
    }
    return names;
}

INSTANTIATE_TEST_SUITE_P(Of, Pages, testing::ValuesIn(AllPages()),
                         [](const auto& page) { return page.param; });

}  // namespace
}  // namespace tamlo
