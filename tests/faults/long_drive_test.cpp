// An hour of driving in virtual time: at its end the game holds no more memory than at its begin.
// With the leak sanitizer, nothing is left behind either.
#include <gtest/gtest.h>
#include <malloc.h>
#include <unistd.h>

#include <fstream>
#include <iostream>

#include "game/form1.h"
#include "game/game_fields.h"
#include "listening_speech.h"
#include "rehearsal/rehearsal.h"
#include "scenarios/career_driver.h"
#include "services/disk_files.h"
#include "temporary_folder.h"

namespace tamlo {
namespace {

struct Memory {
    std::size_t in_use = 0;    ///< bytes allocated; 0 under a sanitizer, which counts for itself
    std::size_t resident = 0;  ///< bytes
};

Memory MemoryNow() {
    std::size_t pages = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return {mallinfo2().uordblks, resident * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE))};
}

/// Drives from order to order, never rich enough to win, and looks at the memory between trips.
class Drive {
  public:
    std::vector<Step> Next(const GameState& gs, const std::string& asked,
                           std::chrono::microseconds now) {
        if (asked == " deliver tamlo ") {
            if (driver_.trips == trips_before) begin = MemoryNow(), begin_time = now;
            end = MemoryNow();
            driven = now - begin_time;
            if (driver_.trips > trips_before && driven >= std::chrono::hours(1)) return {};
        }
        auto steps = driver_.Answer(gs, asked);
        driver_.script.clear();
        if (asked == " deliver tamlo ") {
            steps.insert(steps.begin(), Step{.kind = Step::Kind::set, .words = {"cash", "0"}});
        }
        return steps;
    }

    Memory begin, end;
    std::chrono::microseconds begin_time{0}, driven{0};
    int Trips() const { return driver_.trips - trips_before; }

  private:
    static constexpr int trips_before = 3;  ///< until everything has been used once

    CareerDriver driver_{0};
};

TEST(AnHourOfDriving, LeavesNothingInMemory) {
    const TemporaryFolder documents;
    DiskFiles disk;
    Rehearsal rehearsal({}, {documents.Path(), TAMLO_SOUNDS, TAMLO_SOUNDS}, disk,
                        [](std::string_view) {});
    const Platform services = rehearsal.Services();
    ListeningSpeech speech(services.speech);
    Form1 game({speech, services.sound, services.events, services.files, services.clock,
                services.desktop, services.random});
    Drive drive;
    rehearsal.ContinueWith(
        [&] { return drive.Next(game.gs, speech.Last(), services.clock.Steady()); });
    const FieldAccess fields{[&game](std::string_view field, std::string_view value) {
                                 SetField(game.gs, field, value);
                             },
                             [](std::string_view) { return std::string(); }};
    rehearsal.Run([&game] { game.Form_Load(); }, fields);

    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(drive.driven).count();
    ASSERT_GE(seconds, 3600);
    std::cout << seconds << " seconds, " << drive.Trips() << " trips, " << drive.begin.in_use
              << " bytes at the start, " << drive.end.in_use << " bytes at the end\n";
    // A text may be longer at the end than at the start.
    EXPECT_LE(drive.end.in_use, drive.begin.in_use + 4096);
    if (drive.begin.in_use > 0) {
        EXPECT_LE(drive.end.resident, drive.begin.resident + (1 << 20));
    }
}

}  // namespace
}  // namespace tamlo
