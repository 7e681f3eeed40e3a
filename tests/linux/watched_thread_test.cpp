// What a thread leaves in the report when it fails; without the sanitizers, which catch faults too.
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <string>

#include "linux/system/watched_run.h"
#include "services/thread.h"

namespace tamlo {
namespace {

[[gnu::noinline]] int FillTheStack(volatile char* before, unsigned depth) {
    volatile char room[4096];
    room[0] = before[0];
    return depth == 0 ? 0 : FillTheStack(room, depth - 1) + room[0];
}

// A thread of the voice, the card or the braille display, and one whose stack is full.
TEST(WatchedRunTest, TellsWhereAThreadWasWhenItFailed) {
    for (const auto& fail :
         {std::function<void()>([] { ::raise(SIGSEGV); }), std::function<void()>([] {
              char first = 0;
              FillTheStack(&first, 1U << 30);
          })}) {
        const RunEnd fault = RunWatched(
            [&] {
                StartThread(fail).join();
                return 0;
            },
            std::chrono::seconds(60));
        EXPECT_EQ(fault.signal, SIGSEGV);
        EXPECT_NE(fault.notes.find("watched_thread_test("), std::string::npos) << fault.notes;
    }
}

}  // namespace
}  // namespace tamlo
