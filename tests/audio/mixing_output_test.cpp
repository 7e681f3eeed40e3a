// Who pulls the stream: the card, the clock in its place, and the way back.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>
#include <vector>

#include "audio/eventually.h"
#include "audio/mixing_signals.h"
#include "audio/output/clock_output.h"
#include "audio/output/tap.h"

namespace tamlo {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

class OutputTest : public testing::Test {
  protected:
    void SetUp() override { mixer_.Attach(source_); }

    // The first sample that the card gets from its next block.
    float Pull() {
        std::vector<float> block(512, 9.0F);
        tap_->Pull(block.data(), 256);
        for (const float value : block) EXPECT_EQ(value, block[0]);
        return block[0];
    }

    Mixer mixer_;
    Constant source_;
    std::shared_ptr<Tap> tap_ = std::make_shared<Tap>(mixer_);
};

TEST_F(OutputTest, OneOutputAtATimeGetsTheStream) {
    EXPECT_EQ(Pull(), 0.25F);
    tap_->Pass(1000);
    EXPECT_EQ(tap_->Frames(), 256);
    tap_->PutClockInCharge();
    tap_->Pass(1000);
    EXPECT_EQ(Pull(), 0.0F);
    EXPECT_EQ(tap_->Frames(), 1256);
    EXPECT_TRUE(Eventually([&] { return Pull() == 0.25F; }))
        << "a card that pulls steadily is in charge again";
    tap_->Close();
    EXPECT_EQ(Pull(), 0.0F);
}

TEST_F(OutputTest, OnlyWhatIsHeardOfWhatWasMadeAheadCounts) {
    std::vector<float> block(2 * 1024);
    ASSERT_TRUE(tap_->PullAhead(block.data(), 1024));
    EXPECT_EQ(block[2047], 0.25F);
    tap_->Commit(512);
    EXPECT_EQ(tap_->Rewind(300), 300);
    ASSERT_TRUE(tap_->PullAhead(block.data(), 512));
    EXPECT_EQ(tap_->Frames(), 512);
    tap_->PutClockInCharge();
    EXPECT_EQ(tap_->Rewind(100), 0);
    tap_->Commit(0);
    tap_->Pass(1000);
    EXPECT_EQ(tap_->Frames(), 1512);
    ASSERT_TRUE(tap_->PullAhead(block.data(), 256));
    EXPECT_EQ(block[0], 0.0F);
}

TEST_F(OutputTest, WhatIsMixedAgainForAChangeIsNoSignOfTheCard) {
    std::vector<float> block(2 * 1024);
    ASSERT_TRUE(tap_->PullAhead(block.data(), 1024));
    const auto later = Clock::now() + 600ms;
    const auto silence = tap_->CardSilence(later);
    std::this_thread::sleep_for(5ms);
    const auto change = [&] {
        EXPECT_EQ(tap_->Rewind(512), 512);
        for (int part = 0; part < 2; ++part) EXPECT_TRUE(tap_->PullAhead(block.data(), 256));
    };
    for (int changes = 0; changes < 10; ++changes) change();
    EXPECT_EQ(tap_->CardSilence(later), silence);
    ASSERT_TRUE(tap_->PullAhead(block.data(), 256));
    EXPECT_LT(tap_->CardSilence(later), silence) << "a block more was asked for";

    change();
    ClockPulls(tap_).Turn(Clock::now() + 600ms);
    EXPECT_EQ(tap_->InCharge(), Output::clock);
}

TEST_F(OutputTest, ACardThatPullsNowAndThenIsNotBack) {
    tap_->PutClockInCharge();
    for (int i = 0; i < 20; ++i) {
        Pull();
        if (i % 5 == 4) std::this_thread::sleep_for(110ms);
    }
    EXPECT_EQ(tap_->InCharge(), Output::clock);
}

TEST_F(OutputTest, TheClockTakesOverFromASilentCardAndKeepsTime) {
    const auto before = Clock::now();
    Pull();
    const auto after = Clock::now();
    const std::int64_t from = tap_->Frames();
    ClockPulls clock(tap_);
    EXPECT_EQ(clock.Turn(before + 400ms), before + 525ms);
    EXPECT_EQ(tap_->InCharge(), Output::card);

    // From now on it is told the time up to 20 ms late, but no lateness adds up.
    const auto begin = after + 501ms;
    auto due = begin;
    for (int turn = 0; due < begin + 60s; ++turn) due = clock.Turn(due + 1ms * (turn * 7 % 21));
    EXPECT_EQ(tap_->InCharge(), Output::clock);
    EXPECT_NEAR(static_cast<double>(tap_->Frames() - from), 60 * stream_rate, stream_rate / 20);

    // A delay is caught up with, an absence is not.
    const std::int64_t at_delay = tap_->Frames();
    due = clock.Turn(due + 200ms);
    EXPECT_EQ(tap_->Frames() - at_delay, stream_rate * 250 / 1000);
    clock.Turn(due + 2s);
    EXPECT_EQ(tap_->Frames() - at_delay, stream_rate * 300 / 1000);
}

TEST_F(OutputTest, TheClockEndsAtOnceWhereverItIs) {
    for (const bool in_charge : {false, true}) {
        if (in_charge) tap_->PutClockInCharge();
        const auto began = Clock::now();
        { const ClockOutput clock(tap_); }
        EXPECT_LT(Clock::now() - began, 5s);
    }
}

}  // namespace
}  // namespace tamlo
