// How the length of the card's blocks follows the lateness of the machine.
#include "linux/sound/block_size.h"

#include <gtest/gtest.h>

namespace tamlo {
namespace {

using namespace std::chrono_literals;

/// A card that is watched once a second.
class WatchedCard {
  public:
    WatchedCard() { size.Opened(late, now); }

    /// Some seconds with so many late blocks in each.
    int Watch(int seconds, int late_a_second = 0) {
        for (int i = 0; i < seconds; ++i) {
            now += 1s;
            late += late_a_second;
            const int wanted = size.Wanted(late, now);
            if (wanted == size.Frames()) continue;
            size.Change(wanted);
            size.Opened(late, now);
        }
        return size.Frames();
    }

    BlockSize size;
    BlockSize::Time now{1h};
    int late = 0;
};

TEST(BlockSize, OneLateBlockIsForgivenAndMoreMakeItGrowAsFarAsItCan) {
    WatchedCard card;
    EXPECT_EQ(card.Watch(1, 1), 256);
    EXPECT_EQ(card.Watch(20), 256);
    EXPECT_EQ(card.Watch(1, 2), 512);
    EXPECT_EQ(card.Watch(1, 2), 1024);
    EXPECT_EQ(card.Watch(5, 2), 1024);
}

TEST(BlockSize, AMinuteOfCalmHalvesIt) {
    WatchedCard card;
    EXPECT_EQ(card.Watch(2, 2), 1024);
    EXPECT_EQ(card.Watch(55), 1024);
    EXPECT_EQ(card.Watch(1, 1), 1024);  // the minute begins again
    EXPECT_EQ(card.Watch(59), 1024);
    EXPECT_EQ(card.Watch(3), 512);
    EXPECT_EQ(card.Watch(65), 256);
    EXPECT_EQ(card.Watch(600), 256);
}

TEST(BlockSize, EachWayToTheCardHasItsOwnRange) {
    WatchedCard card;
    card.size = BlockSize({128, 512});
    card.size.Opened(card.late, card.now);
    EXPECT_EQ(card.Watch(1, 0), 128);
    EXPECT_EQ(card.Watch(4, 2), 512);
    EXPECT_EQ(card.Watch(600), 128);
}

TEST(BlockSize, EveryTrialThatFailsMakesTheNextOneRarer) {
    WatchedCard card;
    EXPECT_EQ(card.Watch(1, 2), 512);
    for (const int calm : {60, 120, 240, 480}) {
        EXPECT_EQ(card.Watch(calm), 512) << calm;
        EXPECT_EQ(card.Watch(2), 256) << calm;
        EXPECT_EQ(card.Watch(1, 2), 512) << calm;
    }
}

}  // namespace
}  // namespace tamlo
