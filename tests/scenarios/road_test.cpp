// Road events: hazards, patrols and scenes, with their pans, paces and times.
#include <gtest/gtest.h>

#include "rehearsed_game.h"

namespace tamlo {
namespace {

/// Puts the driver at a corner and checks the road there.
Performance Check(int street, int road, double speed, const std::string& draws,
                  RehearsedGame&& game = {}) {
    return game.Perform("draw " + draws + "\nshow tit atod", [&](Form1& form) {
        form.gs.rox = street;
        form.gs.roy = road;
        form.gs.sped = speed;
        form.checkspec();
        form.dy(7);  // so that the game is at rest for the last step
        form.dy(7);
    });
}

TEST(Hazards, HoldTheDriverUpAtTheirCorners) {
    const struct {
        std::string what;
        int street, road;
        double speed;
        std::string draws;
        std::string sound;  // "" for none
        std::string tit;
    } cases[] = {
        // Crossings: the second third of the draw is no train. Nothing else follows.
        {"freight train", 56, 23, 30, "0 0 0.49 0", "play tamlo21 once", "180"},
        {"passenger train", 45, 23, 60, "0.9 0.999 0.5 0", "play tamlo22 once", "299"},
        {"no train", 56, 23, 60, "0.34 0.5119", "", "0"},
        {"truck", 51, 25, 60, "0 0.999", "play tamlo34 once", "119"},
        {"trap at the limit", 54, 24, 35, "0", "", "0"},
        {"trap above it", 54, 24, 36, "0", "play tamlo25 once", "300"},
        {"trap at Apple", 47, 22, 65, "0.999", "play tamlo25 once", "419"},
        {"trap at Cedar", 53, 19, 40, "0.5", "play tamlo25 once", "360"},
        {"trap at Chrysler", 46, 27, 36, "0", "play tamlo25 once", "300"},
        {"hospital, then nothing", 52, 19, 30, "0 0.9", "play tamlo23 once", "60"},
        {"the other hospital", 46, 26, 30, "0.999 0.9", "play tamlo23 once", "119"},
        // At 41, one chance in 50: the draw that equals a third of it.
        {"patrol", 10, 10, 41, "0.31 0.5", "play tamlo25 once", "360"},
        {"patrol, the other draw", 10, 10, 41, "0.33 0.9", "", "0"},
        {"patrol looks above 40", 10, 10, 40, "0.9", "", "0"},
        {"no patrol on Center", 10, 23, 65, "0.9", "", "0"},
        {"no patrol on Seventh", 45, 10, 65, "0.9", "", "0"},
        {"no patrol on Fifth", 56, 10, 65, "0.9", "", "0"},
        // One scene in 42: the draw of 22. The near miss is scene 4.
        {"a scene", 10, 10, 30, "0.5119 0.18 0.5", "play tamlo33 once", "45"},
        {"a draw before the scene", 10, 10, 30, "0.4999", "", "0"},
        {"a draw after the scene", 10, 10, 30, "0.5239", "", "0"},
    };
    for (const auto& c : cases) {
        const auto run = Check(c.street, c.road, c.speed, c.draws);
        EXPECT_EQ(run.Shown("tit"), c.tit) << c.what;
        EXPECT_EQ(run.Shown("atod"), c.tit) << c.what;
        if (c.sound.empty()) {
            EXPECT_TRUE(run.Events("play ").empty()) << c.what << run.trace;
        } else {
            EXPECT_EQ(run.Count(c.sound), 1) << c.what;
        }
    }
}

/// The pans of a buffer, with the time of each.
std::vector<std::pair<double, int>> Pans(const Performance& run, const std::string& name) {
    std::vector<std::pair<double, int>> pans;
    const std::string start = "setpan " + name + " ";
    for (const TraceLine& line : run.lines) {
        if (line.event.starts_with(start)) {
            pans.emplace_back(line.seconds, std::stoi(line.event.substr(start.size())));
        }
    }
    return pans;
}

TEST(Scenes, FiveInLineTrailEachOtherAndAreSilencedOneByOne) {
    RehearsedGame game;
    const auto run = game.Perform("draw 0.9", [](Form1& form) { form.playscene(15); });
    const auto pans = Pans(run, "tamlo87");
    ASSERT_EQ(pans.size(), 5u + 5 * 102);
    const std::vector<int> start = {-2000, -2333, -2666, -2999, -3332};
    for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(pans[i].second, start[i]);
    EXPECT_EQ(pans[10].second, -2000 + 47);
    EXPECT_EQ(pans[5 * 102].second, 2747);
    EXPECT_NEAR(pans[5 * 102].first - pans[5].first, 101 * 0.11, 1e-6);
    std::vector<double> starts;
    for (const TraceLine& line : run.lines) {
        if (line.event.starts_with("play tamlo87 loop")) starts.push_back(line.seconds);
    }
    ASSERT_EQ(starts.size(), 5u);
    for (std::size_t i = 1; i < 5; ++i) EXPECT_NEAR(starts[i] - starts[i - 1], 0.41, 1e-6);
    // The leader passes 2000 at step 86, the last 2600 at step 98; each is silenced at every later
    // step too: 16 + 13 + 10 + 7 + 4 of the 102.
    EXPECT_EQ(run.Count("setvolume tamlo87 -6400"), 16 + 13 + 10 + 7 + 4);
    EXPECT_EQ(run.Count("stop tamlo87"), 5);
}

TEST(Scenes, NoneComesTwiceInFive) {
    RehearsedGame game;
    std::vector<int> played;
    game.Perform("", [&](Form1& form) {
        form.gs.rox = form.gs.roy = 10;
        while (played.size() < 60) {
            const int newest = form.gs.evhist(4);
            form.checkspec();
            if (form.gs.evhist(4) != newest) played.push_back(form.gs.evhist(4));
        }
    });
    int again_after_four = 0;
    for (std::size_t i = 0; i < played.size(); ++i) {
        again_after_four += i > 4 && played[i] == played[i - 5];
        for (std::size_t back = 1; back <= 4 && back <= i; ++back) {
            EXPECT_NE(played[i], played[i - back]);
        }
    }
    EXPECT_GT(again_after_four, 0);
}

TEST(Odds, OfScenesAndTrainsHoldOverManyCorners) {
    RehearsedGame game;
    int scenes = 0;
    int trains = 0;
    constexpr int corners = 4200;
    game.Perform("", [&](Form1& form) {
        for (int i = 0; i < corners; ++i) {
            form.gs.rox = form.gs.roy = 10;
            form.gs.tit = 0;
            form.checkspec();
            scenes += form.gs.tit > 0;
        }
        for (int i = 0; i < 300; ++i) {
            form.gs.rox = 56;
            form.gs.roy = 23;
            form.gs.tit = 0;
            form.checkspec();
            trains += form.gs.tit > 0;
        }
    });
    EXPECT_NEAR(scenes, corners / 42, 40);  // four standard deviations
    EXPECT_NEAR(trains, 200, 33);
}

TEST(Effects, EndAsTheirKindOfPlayingSays) {
    RehearsedGame game;
    const auto run = game.Perform("upon sound tamlo8 a\nupon sound tamlo17 b", [](Form1& form) {
        form.play("tamlo8");  // not to be cut short
        form.say2("pending " + form.gs.g);
        form.play2("tamlo17");
        form.say2("pending " + form.gs.g);
        form.play3("tamlo6");
        form.play2("tamlo7");
        form.stoploop();
        form.play("tamlo999");
        form.say2("over");
    });
    EXPECT_NEAR(run.TimeOf("pending 65") - run.TimeOf("play tamlo8"), 2.6, 0.02);
    EXPECT_NEAR(run.TimeOf("stop tamlo17") - run.TimeOf("play tamlo17"), 0.1, 0.02);
    EXPECT_TRUE(run.Heard("pending 66"));
    EXPECT_NEAR(run.TimeOf("stop tamlo6"), run.TimeOf("load tamlo7"), 1e-6);
    EXPECT_EQ(run.Count("load tamlo999 missing"), 1);
    EXPECT_TRUE(run.Heard("over"));
}

}  // namespace
}  // namespace tamlo
