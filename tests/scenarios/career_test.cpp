// A whole career: paid, promoted, saved, resumed, won.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "orders/number_text.h"
#include "rehearsed_game.h"
#include "scenarios/career_driver.h"
#include "store/record_file.h"
#include "store/saved_game.h"

namespace tamlo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Texts = std::vector<std::string>;

struct Career {
    std::vector<Performance> days;
    std::vector<SavedGame> saves;
    int most_promotions_a_return = 0;
};

/// Plays to the record; every day is a run of the program.
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
    EXPECT_TRUE(last.Heard(" Which sets a new record."));
    EXPECT_TRUE(last.Heard(" There was no previous record."));
    EXPECT_TRUE(last.Heard(" Is Al correct for your name? "));
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
    EXPECT_THAT(log, testing::StartsWith(" Tamlo Delivery log file on 03-10-2015\r\n\r\n"));
    EXPECT_THAT(log, HasSubstr("\r\n There was no previous record.\r\n"));
    std::size_t bare = 0;
    for (std::size_t at = 0; (at = log.find('\n', at)) != log.npos; ++at) {
        bare += at == 0 || log[at - 1] != '\r';
    }
    EXPECT_EQ(bare, 0u);

    const auto fresh = game.Run("show cash plast npd");
    EXPECT_EQ(fresh.Events("state").at(0), "state cash=0 plast=1 npd=0");
    EXPECT_EQ(game.Content("tamlolog.txt"), " Tamlo Delivery log file on 03-05-2015\r\n\r\n");
}

TEST(Career, BothPromotionsCanComeOnOneReturn) {
    RehearsedGame game;
    CareerDriver driver(2);
    const auto run = game.Run(
        "press enter\nset cash 600\n",
        [&](const GameState& gs, const std::string& asked) { return driver.Answer(gs, asked); });
    const auto spoken = run.Spoken();
    const auto buggy = std::find(spoken.begin(), spoken.end(),
                                 " You have been promoted from the tamlo vorrel scooter to the "
                                 "tamlo vorrel psychedelic dune buggy. ");
    ASSERT_LT(buggy + 1, spoken.end());
    EXPECT_EQ(*(buggy + 1),
              " You have been promoted from the tamlo vorrel psychedelic dune buggy  to the tamlo "
              "vorrel psychedelic van. ");
    EXPECT_THAT(run.Events("load tamlo"), testing::Contains("load tamlo30"));
}

/// The trip is over at the next stop: the summary and what follows it.
Performance ComeBack(RehearsedGame& game, double cash, int plast, double tit, double tips) {
    return game.Perform("", [&](Form1& form) {
        GameState& gs = form.gs;
        gs.cash = cash;
        gs.plast = plast;
        gs.tit = tit;
        gs.triptips = tips;
        gs.atod = 10800;
        form.comeback();
        form.say2("level " + std::to_string(gs.plast) + " area " + std::to_string(gs.mst));
    });
}

TEST(ComingBack, TellsTheTripAndPromotesAboveItsThresholds) {
    const struct {
        double cash;
        int plast;
        double tit, tips;
        std::string summary;
        std::string level;
    } cases[] = {
        {0, 1, 125, 3.5, " your trip took 2 minutes and 5 seconds.  You made  $3.50 in tips.",
         "level 1 area 30"},
        {100, 1, 120, 0, " your trip took 2 minutes and 0 seconds.  You made  $. in tips.",
         "level 1 area 30"},
        {100.01, 1, 61, 20, " your trip took 1 minutes and 1 seconds.  You made  $20. in tips.",
         "level 2 area 65"},
        {500.01, 2, 0, 1, " your trip took 0 minutes and 0 seconds.  You made  $1. in tips.",
         "level 3 area 102"},
        {500, 2, 0, 1, " your trip took 0 minutes", "level 2 area 30"},
        {2000, 3, 0, 1, " your trip took 0 minutes", "level 3 area 30"},
    };
    for (const auto& c : cases) {
        RehearsedGame game;
        const auto run = ComeBack(game, c.cash, c.plast, c.tit, c.tips);
        EXPECT_TRUE(run.Heard(c.summary)) << run.trace;
        EXPECT_TRUE(run.Heard(c.level)) << c.level << run.trace;
    }
}

TEST(ComingBack, EndsTheGameAboveTwoThousandDollars) {
    RehearsedGame game;
    const auto run = game.Perform("press a enter enter", [](Form1& form) {
        form.gs.cash = 2000.01;
        form.gs.plast = 3;
        form.gs.atod = 10800;
        form.comeback();
        form.say2("no end");
    });
    EXPECT_TRUE(
        run.Heard(" You have made over two thousand dollars delivering delicious tamlos "
                  "for the Tamlo Vorrel."));
    EXPECT_FALSE(run.Heard("no end"));
    EXPECT_EQ(run.Count("play tamlo38 once"), 1);
}

Performance EndGame(RehearsedGame& game, const std::string& keys, double seconds) {
    return game.Perform(keys.empty() ? "" : "press " + keys, [&](Form1& form) {
        form.gs.nhr = 2;
        form.gs.nmt = 59;
        form.gs.nsd = 50;
        form.gs.npd = 1234;
        form.gs.atod = 10800 + seconds;
        form.endgame();
    });
}

TEST(Record, OnlyAShorterTimeReplacesItAndTheRestOfALongerOneStays) {
    const Record old{3, 0, 5, "Bernadette", {2015, 3, 5}};
    const struct {
        double seconds;  // of the last day, on top of 2:59:50
        bool beats;
    } cases[] = {{14, true}, {15, false}, {16, false}};
    for (const auto& c : cases) {
        RehearsedGame game;
        game.Write("tamlo.rec", EncodeRecord(old));
        game.Write("tamlo.sav", EncodeSavedGame({}));
        const auto run = EndGame(
            game, c.beats ? "shift j o n enter down enter shift j o enter enter" : "", c.seconds);
        const std::string seconds = std::to_string(static_cast<int>(c.seconds) - 10);
        EXPECT_TRUE(run.Heard(" It took you 3 hours, 0 minutes and " + seconds +
                              " seconds. And you delivered 1,234 tamlos for the Tamlo Vorrel. "))
            << run.trace;
        EXPECT_FALSE(game.Has("tamlo.sav"));
        if (c.beats) {
            EXPECT_TRUE(run.Heard(" Which sets a new record."));
            EXPECT_TRUE(
                run.Heard(" The old record was 3 Hours, 0 minutes and 5 seconds. by "
                          "Bernadette. on  3/5/2015"));
            EXPECT_TRUE(run.Heard(" Is Jon correct for your name? "));
            const std::string own = EncodeRecord({3, 0, 4, "Jo", {2015, 3, 5}});
            EXPECT_EQ(game.Content("tamlo.rec"), own + EncodeRecord(old).substr(own.size()));
        } else {
            EXPECT_TRUE(
                run.Heard(" The record is 3 hours 0 minutes and 5 seconds. by Bernadette "
                          "on  3/5/2015"));
            EXPECT_EQ(game.Content("tamlo.rec"), EncodeRecord(old));
        }
        EXPECT_TRUE(run.Heard(" Thank you for playing Tamlo Delivery "));
    }
}

TEST(Record, ThatCanNotBeUnderstoodIsPutAsideAndCountsAsNone) {
    RehearsedGame game;
    game.Write("tamlo.rec", "scribble");
    game.Write("tamlo damaged 1.rec", "an earlier one");
    const auto run = EndGame(game, "a enter enter", 0);
    EXPECT_TRUE(run.Heard("the old record can not be understood. It has been put aside."));
    EXPECT_TRUE(run.Heard(" There was no previous record."));
    EXPECT_EQ(game.Content("tamlo damaged 2.rec"), "scribble");
    EXPECT_EQ(game.Content("tamlo damaged 1.rec"), "an earlier one");
    ASSERT_TRUE(DecodeRecord(game.Content("tamlo.rec")));
    EXPECT_EQ(DecodeRecord(game.Content("tamlo.rec"))->name, "a");
}

/// Quits for the day after so many game seconds.
Performance Quit(RehearsedGame& game, double worked, double cash = 0) {
    return game.Perform("", [&](Form1& form) {
        GameState& gs = form.gs;
        gs.nmt = 50;
        gs.nsd = 40;
        gs.npd = 1;
        gs.cash = cash;
        gs.atod = 10800 + worked;
        form.ppk();
        form.say2(form.saga() ? "saved" : "not saved");
        form.say2(std::to_string(gs.cash) + " " + std::to_string(gs.nhr));
    });
}

TEST(Quitting, PaysTheDayAndSavesIt) {
    const struct {
        double worked;
        std::string hours, pay;
        int notes;
        SavedGame saved;
    } cases[] = {
        {3600,
         " Today you worked 1. hour for the tamlo vorrel. ",
         " You are paid,  $3.14",
         1,
         {13.14, 1, 1, 50, 40, 1}},
        {5400,
         " Today you worked 1.5 hours for the tamlo vorrel. ",
         " You are paid,  $4.71",
         1,
         {14.71, 1, 2, 20, 40, 1}},
        {600,
         " Today you worked .17 hours for the tamlo vorrel. ",
         " You are paid,  $.53",
         0,
         {10.53, 1, 1, 0, 40, 1}},
        {54,
         " Today you worked .02 hours for the tamlo vorrel. ",
         " You are paid,  $.06",
         0,
         {10.06, 1, 0, 51, 34, 1}},
    };
    for (const auto& c : cases) {
        RehearsedGame game;
        const auto run = Quit(game, c.worked, 10);
        EXPECT_TRUE(run.Heard(c.hours)) << run.trace;
        EXPECT_TRUE(run.Heard(c.pay)) << run.trace;
        EXPECT_EQ(run.Count("play tamlo81"), c.notes) << c.hours;
        EXPECT_EQ(run.Count("play tamlo85"), 1);
        EXPECT_TRUE(run.Heard(" You have delivered 1 tamlo for the Tamlo Vorrel. "));
        EXPECT_EQ(game.Content("tamlo.sav"), EncodeSavedGame(c.saved)) << c.hours;
        EXPECT_LT(run.TimeOf("stop tamlo5"), run.TimeOf(" game saved ") + 0.001);
    }
}

TEST(Resuming, TellsTheCareerInItsOwnPlurals) {
    const struct {
        SavedGame saved;
        std::string told;
        std::string driving;
    } cases[] = {
        {{17.5, 1, 0, 1, 1, 0},
         " You have been working at the tamlo vorrel for  1 minute and 1 "
         "second. ",
         "You are driving the tamlo vorrel scooter."},
        {{17.5, 2, 2, 30, 0, 1},
         " You have been working at the tamlo vorrel for 2 hours 30 minutes"
         " and 0 second.  You have delivered 1 tamlo for the Tamlo Vorrel. ",
         "You are driving the tamlo vorrel psychedelic dune buggy."},
        {{17.5, 3, 1, 0, 59, 4321},
         " You have been working at the tamlo vorrel for 1 hour 0 minute"
         " and 59 seconds.  You have delivered 4,321 tamlos for the "
         "Tamlo Vorrel. ",
         "You are driving the tamlo vorrel psychedelic van."},
    };
    for (const auto& c : cases) {
        RehearsedGame game;
        game.Write("tamlo.sav", EncodeSavedGame(c.saved));
        game.Write("tamlolog.txt", "before\r\n");
        const auto run = game.Run("show cash plast mst");
        const auto spoken = run.Spoken();
        EXPECT_THAT(Texts(spoken.begin() + 2, spoken.begin() + 6),
                    ElementsAre(" getting saved game. ", c.told, "You have  $17.50.", c.driving));
        EXPECT_EQ(game.Content("tamlolog.txt"),
                  "before\r\n\r\n" + c.told + "\r\nYou have  $17.50.\r\n" + c.driving + "\r\n");
        EXPECT_EQ(run.Shown("cash"), "17.5");
    }
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

TEST(SavedGame, IsDeletedOnlyByYesAndTheGameStartsAnew) {
    const std::string saved = EncodeSavedGame({5, 1, 0, 0, 0, 0});
    const std::string to_delete = "press down down down down down down down enter ";
    RehearsedGame game;
    game.Write("tamlo.sav", saved);
    const auto no = game.Run(to_delete + "q enter");
    EXPECT_EQ(no.Count(" Are you sure that you wish to delete the saved game? "), 2);
    EXPECT_EQ(game.Content("tamlo.sav"), saved);
    const auto yes = game.Run(to_delete + "down enter");
    EXPECT_FALSE(game.Has("tamlo.sav"));
    EXPECT_THAT(yes.Events("start"), ElementsAre("start game \"tamlo\""));
    EXPECT_EQ(yes.Events().back(), "end");
    const auto none = game.Run(to_delete);
    EXPECT_TRUE(none.Heard(" There is no saved game to delete "));
    EXPECT_EQ(none.Spoken().back(), " start game ");
}

}  // namespace
}  // namespace tamlo
