#include "text/number_text.h"

#include <gtest/gtest.h>

#include <cmath>

#include "text/clock_text.h"

namespace tamlo {
namespace {

TEST(NumberText, MoneyIsWrittenAsTheSentencesNeedIt) {
    const struct {
        double amount;
        const char* text;
    } cases[] = {{0, " $."},
                 {0.5, " $.50"},
                 {0.02, " $.02"},
                 {17.45, " $17.45"},
                 {34.9, " $34.90"},
                 {20, " $20."},
                 {1234.5, " $1,234.50"},
                 {1234567.891, " $1,234,567.89"},
                 {0.125, " $.13"},
                 {1.005, " $1.01"},
                 {0.994, " $.99"},
                 {0.995, " $1."},
                 {999.995, " $1,000."},
                 {-0.001, " $."},
                 {-3.5, " $-3.50"},
                 {1e15, " $1,000,000,000,000,000."},
                 {17.45 * 3, " $52.35"},
                 {NAN, " $."},
                 {INFINITY, " $."}};
    for (const auto& c : cases) EXPECT_EQ(MoneyText(c.amount), c.text) << c.amount;
}

TEST(NumberText, HoursAndCounts) {
    EXPECT_EQ(MoneyPicture(1.5), "1.5");
    EXPECT_EQ(MoneyPicture(2), "2.");
    EXPECT_EQ(MoneyPicture(Rounded(54 / 3600.0, 2)), ".02");
    EXPECT_EQ(CountPicture(0), "");
    EXPECT_EQ(CountPicture(1), "1");
    EXPECT_EQ(CountPicture(1234), "1,234");
    EXPECT_EQ(CountPicture(12345), "12,345");
    EXPECT_EQ(CountPicture(123456789), "123,456,789");
}

TEST(NumberText, PlainNumbersNeverShowAnExponent) {
    EXPECT_EQ(Plain(45.0), "45");
    EXPECT_EQ(Plain(2.5), "2.5");
    EXPECT_EQ(Plain(-0.0), "0");
    EXPECT_EQ(Plain(1e21), "1000000000000000000000");
    EXPECT_EQ(Plain(0.1 + 0.2), "0.30000000000000004");
}

TEST(NumberText, RoundingGoesByTheShortestDecimalText) {
    const struct {
        double number;
        int decimals;
        double rounded;
    } cases[] = {{0.125, 2, 0.13},   {1.005, 2, 1.01},   {0.785, 2, 0.79}, {2.675, 2, 2.68},
                 {0.015, 2, 0.02},   {-0.125, 2, -0.13}, {9.995, 2, 10},   {0.004, 2, 0},
                 {1.0 / 3, 2, 0.33}, {99.5, 0, 100}};
    for (const auto& c : cases) EXPECT_EQ(Rounded(c.number, c.decimals), c.rounded) << c.number;
}

TEST(ClockText, GameTimeTripTimeAndRealTime) {
    EXPECT_EQ(GameTime(10800), "3:00");
    EXPECT_EQ(GameTime(11100), "3:05");
    EXPECT_EQ(GameTime(36120), "10:02");
    EXPECT_EQ(GameTime(11399), "3:09");
    EXPECT_EQ(GameTime(25 * 3600 + 59 * 60 + 59), "25:59");
    EXPECT_EQ(TripTime(0), "0 minutes and 0 seconds");
    EXPECT_EQ(TripTime(60), "1 minute and 0 seconds");
    EXPECT_EQ(TripTime(61), "1 minute and 1 second");
    EXPECT_EQ(TripTime(7325), "122 minutes and 5 seconds");
    EXPECT_EQ(RealTime({0, 7, 0}), "0:7");
    EXPECT_EQ(RealTime({12, 30, 0}), "12:30");
    EXPECT_EQ(RealTime({13, 5, 59}), "1:5");
    EXPECT_EQ(RealTime({9, 30, 0}), "9:30");
}

TEST(ClockText, NoTimeMakesItHangOrOverflow) {
    for (const double time : {1e300, HUGE_VAL, -5.0, std::nan("")}) {
        EXPECT_FALSE(GameTime(time).empty());
        EXPECT_FALSE(TripTime(time).empty());
    }
}

}  // namespace
}  // namespace tamlo
