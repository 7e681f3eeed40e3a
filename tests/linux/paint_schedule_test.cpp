#include "linux/window/paint_schedule.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamlo {
namespace {

TEST(PaintSchedule, PaintsOnceNothingCameForAWhileAndNeverMuchLater) {
    struct Event {
        char what;  ///< l: a line, k: a key, p: painted
        std::uint64_t time;
    };
    struct Case {
        const char* what;
        std::vector<Event> events;
        std::uint64_t now;
        bool unpainted;
        std::uint64_t wait;
    };
    const Case cases[] = {
        {"nothing", {}, 100, false, 0},
        {"a line just now", {{'l', 1000}}, 1000, true, 50},
        {"a line a while ago", {{'l', 1000}}, 1050, true, 0},
        {"a key after the line", {{'l', 1000}, {'k', 1040}}, 1060, true, 30},
        {"a second line", {{'l', 1000}, {'l', 1040}}, 1060, true, 30},
        {"keys all the time", {{'l', 1000}, {'k', 1490}}, 1495, true, 5},
        {"keys for longer", {{'l', 1000}, {'k', 1510}}, 1510, true, 0},
        {"painted", {{'l', 1000}, {'p', 1050}}, 1050, false, 0},
        {"the next line", {{'l', 1000}, {'p', 1050}, {'l', 1600}}, 1610, true, 40},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        PaintSchedule schedule;
        for (const Event& event : c.events) {
            if (event.what == 'l') schedule.LineAdded(event.time);
            if (event.what == 'k') schedule.KeyPressed(event.time);
            if (event.what == 'p') schedule.Painted();
        }
        EXPECT_EQ(schedule.Unpainted(), c.unpainted);
        if (c.unpainted) {
            EXPECT_EQ(schedule.Wait(c.now), c.wait);
        }
    }
}

}  // namespace
}  // namespace tamlo
