// The machine's clocks and chance.
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

#include "app/chance/system_random.h"
#include "linux/system/system_clock.h"

namespace tamlo {
namespace {

TEST(ClockTest, TellsLocalTime) {
    ::setenv("TZ", "XST-5:30", 1);
    const SystemClock clock;
    const std::time_t before = std::time(nullptr);
    const double seconds = clock.SecondsSinceMidnight();
    const TimeOfDay now = clock.Now();
    const Date today = clock.Today();
    // The game may ask on either side of a second or of midnight; all answers lie close together.
    const std::time_t local = before + 19800;
    const auto ahead = [](double later, double earlier) {
        const double difference = later - earlier;
        return difference < 0 ? difference + 86400 : difference;
    };
    EXPECT_LT(ahead(seconds, static_cast<double>(local % 86400)), 30);
    EXPECT_LT(ahead(now.hour * 3600.0 + now.minute * 60 + now.second + 1, seconds), 30);
    std::tm expected = {};
    ::gmtime_r(&local, &expected);
    if (seconds < 86370) {
        EXPECT_EQ(today.year, expected.tm_year + 1900);
        EXPECT_EQ(today.month, expected.tm_mon + 1);
        EXPECT_EQ(today.day, expected.tm_mday);
    }
    const auto steady = clock.Steady();
    EXPECT_GE(clock.Steady(), steady);
}

TEST(RandomTest, SeedingMixesInsteadOfReplacing) {
    SystemRandom random;
    std::set<double> draws;
    double sum = 0;
    constexpr int count = 20000;
    for (int i = 0; i < count; ++i) {
        if (i % 10 == 0) random.Seed(43200.5);
        const double draw = random.Next();
        ASSERT_TRUE(draw >= 0 && draw < 1);
        draws.insert(draw);
        sum += draw;
    }
    EXPECT_EQ(draws.size(), static_cast<std::size_t>(count)) << "one moment, seeded twice";
    EXPECT_NEAR(sum / count, 0.5, 0.02);
    SystemRandom other;
    other.Seed(1);
    random.Seed(1);
    EXPECT_NE(other.Next(), random.Next()) << "two runs";
}

}  // namespace
}  // namespace tamlo
