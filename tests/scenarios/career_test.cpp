// A whole career: paid, promoted, saved, resumed, won.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "rehearsed_game.h"
#include "scenarios/career_driver.h"
#include "store/record_file.h"
#include "store/saved_game.h"
#include "text/number_text.h"

namespace tamlo {
namespace {

using Texts = std::vector<std::string>;

struct Career {
    std::vector<Performance> days;
    std::vector<SavedGame> saves;
    int most_promotions_a_return = 0;
};

/// Plays until the record; each day is a run of the program.
Career PlayCareer(RehearsedGame& game, int trips_a_day, const std::string& first_day = "") {
    Career career;
    CareerDriver driver(trips_a_day);
    const auto answer = [&](const GameState& gs, const std::string& asked) {
        return driver.Answer(gs, asked);
    };
    while (career.days.size() < 60) {
        const std::string head = career.days.empty() ? first_day : "";
        const std::string clock =
            "clock 2015-03-" + std::to_string(career.days.size() % 20 + 10) + " 12:00:00\n";
        career.days.push_back(game.Run(clock + head, answer));
        if (career.days.back().Heard("Thank you for playing")) break;
        const auto saved = DecodeSavedGame(game.Content("tamlo.sav"));
        if (!saved) break;
        EXPECT_EQ(game.Content("tamlo.sav"), EncodeSavedGame(*saved)) << career.days.size();
        EXPECT_TRUE(career.days.back().Heard(" You now have, " + MoneyText(saved->cash)));
        career.saves.push_back(*saved);
    }
    return career;
}

TEST(Career, LeadsThroughAllVehiclesToTheRecordOverSeveralDays) {
    RehearsedGame game;
    const auto start = std::chrono::steady_clock::now();
    const Career career = PlayCareer(game, 20);
    const auto took = std::chrono::steady_clock::now() - start;
    ASSERT_GE(career.saves.size(), 3u);
    EXPECT_LT(took, std::chrono::seconds(20));  // idle, a fraction of a second

    bool drove_buggy = false;
    for (const SavedGame& save : career.saves) drove_buggy |= save.plast == 2;
    EXPECT_TRUE(drove_buggy);
    for (std::size_t day = 0; day < career.saves.size(); ++day) {
        EXPECT_EQ(career.days[day].Events().back(), "end");
        EXPECT_TRUE(career.days[day].Heard(" game saved "));
        const Performance& next = career.days[day + 1];
        EXPECT_TRUE(next.Heard(" getting saved game. ")) << day;
        EXPECT_TRUE(next.Heard(" You have been working at the tamlo vorrel for "));
    }
    const Performance& last = career.days.back();
    EXPECT_TRUE(last.Heard(" You have made over two thousand dollars"));
    EXPECT_EQ(last.Events().back(), "end");
    EXPECT_FALSE(game.Has("tamlo.sav"));

    const auto record = DecodeRecord(game.Content("tamlo.rec"));
    ASSERT_TRUE(record);
    EXPECT_EQ(record->name, "Al");
    EXPECT_EQ(record->date.year, 2015);
    EXPECT_EQ(EncodeRecord(*record), game.Content("tamlo.rec"));
    const SavedGame& before = career.saves.back();
    EXPECT_GE(std::tie(record->hours, record->minutes), std::tie(before.nhr, before.nmt));

    const std::string log = game.Content("tamlolog.txt");
    std::size_t bare = 0;
    for (std::size_t at = 0; (at = log.find('\n', at)) != log.npos; ++at) {
        bare += at == 0 || log[at - 1] != '\r';
    }
    EXPECT_EQ(bare, 0u);
}

TEST(Record, ThatCanNotBeUnderstoodIsPutAsideAndCountsAsNone) {
    RehearsedGame game;
    game.Write("tamlo.rec", "scribble");
    game.Write("tamlo damaged 1.rec", "an earlier one");
    const auto run = game.Perform("press a enter enter", [](Form1& form) { form.endgame(); });
    EXPECT_TRUE(run.Heard("the old record can not be understood. It has been put aside."));
    EXPECT_TRUE(run.Heard(" There was no previous record."));
    EXPECT_EQ(game.Content("tamlo damaged 2.rec"), "scribble");
    EXPECT_EQ(game.Content("tamlo damaged 1.rec"), "an earlier one");
    ASSERT_TRUE(DecodeRecord(game.Content("tamlo.rec")));
    EXPECT_EQ(DecodeRecord(game.Content("tamlo.rec"))->name, "a");
}

TEST(SavedGame, ThatCanNotBeUnderstoodIsPutAsideWhateverIsWrongWithIt) {
    const std::string good = EncodeSavedGame({5, 1, 0, 0, 0, 0});
    const Texts damaged = {"",
                           "x",
                           good.substr(0, 30),
                           good + "more",
                           good.substr(2),
                           EncodeSavedGame({5, 4, 0, 0, 0, 0}),
                           EncodeSavedGame({-5, 1, 0, 0, 0, 0})};
    for (const std::string& bytes : damaged) {
        RehearsedGame game;
        game.Write("tamlo.sav", bytes);
        game.Write("tamlo damaged 1.sav", "an earlier one");
        game.Write("tamlolog.txt", "before\r\n");
        const auto run = game.Run("show cash plast npd");
        EXPECT_TRUE(run.Heard("the saved game can not be understood. It has been put aside"));
        EXPECT_EQ(run.Events("state").at(0), "state cash=0 plast=1 npd=0");
        EXPECT_EQ(game.Content("tamlo damaged 2.sav"), bytes);
        EXPECT_EQ(game.Content("tamlo damaged 1.sav"), "an earlier one");
        EXPECT_FALSE(game.Has("tamlo.sav"));
        EXPECT_THAT(game.Content("tamlolog.txt"), testing::StartsWith("before\r\n\r\n I 'm sorry"));
    }
}

}  // namespace
}  // namespace tamlo
