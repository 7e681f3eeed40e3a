// The template of a back end works, so that what begins as a copy of it does.
#include "linux/back_end_template.h"

#include <gtest/gtest.h>

#include "audio/eventually.h"
#include "audio/mixing/mixer.h"

namespace tamlo {
namespace {

TEST(BackEndTemplate, PullsTheStreamUntilTheDeviceIsGone) {
    Mixer mixer;
    const auto tap = std::make_shared<Tap>(mixer);
    int written = 0;
    const auto stream =
        TemplateStream::Open(tap, [&](std::span<const float>) { return ++written < 5; });
    ASSERT_NE(stream, nullptr);
    EXPECT_TRUE(Eventually([&] { return stream->Gone(); }));
    EXPECT_EQ(stream->Blocks(), 5);
    EXPECT_EQ(tap->Frames(), 5 * TemplateStream::block);
    EXPECT_EQ(TemplateStream::Open(tap, nullptr), nullptr);
}

}  // namespace
}  // namespace tamlo
