// Listening to the names of a city, key by key.
#include "app/city/hear_city.h"

#include <gtest/gtest.h>

#include "rehearsed_game.h"

namespace tamlo {
namespace {

TEST(HearCity, NamesAreHeardAloneAndInACorner) {
    std::vector<std::string> names;
    for (int name = 1; name <= 147; ++name) names.push_back("Name" + std::to_string(name));
    RehearsedGame game;
    const auto run =
        game.RunProgram("press down enter\nafter 5 up\npress up enter\nafter 5 q\npress f1 escape",
                        [&](Form1& form) { HearCity(form, "Paris", names); });
    EXPECT_TRUE(run.Heard(" road 1, Name1 "));
    EXPECT_TRUE(run.Heard(" You are at the corner of Name96 and Name2, heading North"));
    EXPECT_TRUE(run.Heard(" street 102, Name147 "));
    EXPECT_TRUE(run.Heard(" You are at the corner of Name147 and Name23, heading North"));
    EXPECT_EQ(run.Events("say2 \" The names of Paris.").size(), 2u);
    EXPECT_TRUE(run.Heard(" Good bye. "));
    EXPECT_EQ(run.Events().back(), "end");
}

}  // namespace
}  // namespace tamlo
