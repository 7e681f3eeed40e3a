#include "day/tip.h"

#include <gtest/gtest.h>

#include "orders/sentences.h"
#include "text/play_time.h"

namespace tamlo {
namespace {

TEST(Tip, FallsWithEveryBoundary) {
    const struct {
        double late;  // seconds after the expected time
        double tip;   // of an order of 100 dollars
    } cases[] = {{-10000, 30}, {-300, 30}, {-275, 29},  {0, 18},     {25, 17},
                 {250, 8},     {450, 0},   {451, 0.02}, {9000, 0.02}};
    for (const auto& c : cases) EXPECT_DOUBLE_EQ(Tip(100, 1000, 1000 + c.late), c.tip) << c.late;
}

TEST(ItemPhrase, RunsFromTheSizeToTheItem) {
    const std::string rest = ", ham and onion tamlo";
    EXPECT_EQ(ItemPhrase(" There is an order for 1 large, ham tamlo.  To be delivered"),
              "large, ham tamlo.");
    EXPECT_EQ(ItemPhrase(" There is an order for 3 extra large" + rest + "s.  To be"),
              "extra large, ham and onion tamlos");
    EXPECT_EQ(ItemPhrase(" There is an order for 10 large" + rest + "s.  To be"),
              " large, ham and onion tamlos");
    EXPECT_EQ(ItemPhrase("short"), "");
}

TEST(PlayTime, CarriesIntoMinutesAndHours) {
    int hours = 0;
    int minutes = 50;
    double seconds = 40 + 600;
    CarryTime(hours, minutes, seconds);
    EXPECT_EQ(hours, 1);
    EXPECT_EQ(minutes, 0);
    EXPECT_EQ(seconds, 40);
}

TEST(PlayTime, StaysAtTheMostThatFits) {
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_EQ(AddedUp(most - 1, 10), most);
    EXPECT_EQ(AddedUp(40, 10), 50);
    int hours = most;
    int minutes = 59;
    double seconds = 7260;
    CarryTime(hours, minutes, seconds);
    EXPECT_EQ(hours, most);
    EXPECT_EQ(minutes, 0);
    EXPECT_EQ(seconds, 0);
}

}  // namespace
}  // namespace tamlo
