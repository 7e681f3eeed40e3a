// Learning the sounds, key by key.
#include <gtest/gtest.h>

#include "app/sounds/learn_sounds.h"
#include "rehearsed_game.h"

namespace tamlo {
namespace {

TEST(LearnSounds, EachIsNamedAndPlayedAsInTheGame) {
    RehearsedGame game;
    const auto run = game.RunProgram(
        "press enter q f1 down down down enter\nupon sound tamlo4 down\n"
        "press up up up up enter\nafter 12 escape",
        LearnSounds);
    EXPECT_TRUE(run.Heard(" scooter: pulls away "));
    EXPECT_EQ(run.Count("play tamlo1 once frequency 8000"), 1);
    EXPECT_NEAR(run.TimeOf("stop tamlo4") - run.TimeOf("play tamlo4 once"), 0.1, 0.03);
    EXPECT_TRUE(run.Heard(" background: rain "));
    EXPECT_NEAR(run.TimeOf("stop tamlob4") - run.TimeOf("play tamlob4 loop"), 10, 1.2);
    EXPECT_TRUE(run.Heard(" Good bye. "));
    EXPECT_EQ(run.Events().back(), "end");
}

TEST(LearnSounds, ScenesMove) {
    RehearsedGame game;
    std::string downs;
    for (int i = 0; i < 87; ++i) downs += " down";
    const auto run = game.RunProgram("press" + downs + " enter escape", LearnSounds);
    EXPECT_TRUE(run.Heard(" tram "));
    EXPECT_GT(run.Events("setpan tamlo88").size(), 80u);
}

}  // namespace
}  // namespace tamlo
