// Reading a rehearsal's script: every step, and what is refused.
#include <gtest/gtest.h>

#include <sstream>

#include "linux/fake_game.h"
#include "rehearsal/script.h"
#include "rehearsal/wave_length.h"
#include "rehearsal/words.h"
#include "wave_maker.h"

namespace tamlo {
namespace {

Script Good(std::string_view text) {
    return std::get<Script>(ReadScript(text, FakeFieldChecks()));
}

TEST(RehearsalScript, ReadsEveryStep) {
    const Script script = Good(
        "\xEF\xBB\xBF# a day at sea\r\n"
        "\n"
        "clock 2024-02-29 23:59:58\r\n"
        "voices 0\n"
        "  # and so on\n"
        "press enter 65\n"
        "upon \" say \\\"no\\\" \\\\ \" 7\n"
        "upon sound tune z\n"
        "upon sound f6\n"
        "\tafter 1.234 escape\n"
        "draw 0 0.999 1e-3\n"
        "set cash \"1 2\"\n"
        "show cash plast");
    EXPECT_EQ(script.date.year * 10000 + script.date.month * 100 + script.date.day, 20240229);
    EXPECT_EQ(script.time.hour * 10000 + script.time.minute * 100 + script.time.second, 235958);
    EXPECT_EQ(script.voices, 0);

    std::ostringstream steps;
    for (const Step& step : script.steps) {
        steps << step.line << ':' << static_cast<int>(step.kind) << " key " << step.key << " delay "
              << step.delay;
        for (const std::string& word : step.words) steps << " [" << word << ']';
        for (const double number : step.numbers) steps << ' ' << number;
        steps << '\n';
    }
    EXPECT_EQ(steps.str(),
              "6:0 key 13 delay 0\n"
              "6:0 key 65 delay 0\n"
              "7:1 key 55 delay 0 [ say \"no\" \\ ]\n"
              "8:2 key 90 delay 0 [tune]\n"
              "9:1 key 117 delay 0 [sound]\n"
              "10:3 key 27 delay 124\n"
              "11:4 key 0 delay 0 0 0.999 0.001\n"
              "12:5 key 0 delay 0 [cash] [1 2]\n"
              "13:6 key 0 delay 0 [cash] [plast]\n");
}

TEST(RehearsalScript, RefusesWhatIsWrongWithItsLine) {
    struct Case {
        std::string_view text;
        int line;
        std::string_view what;
    };
    constexpr Case cases[] = {
        {"jump", 1, "there is no step \"jump\""},
        {"\n\npress", 3, "press takes one key or more"},
        {"press enter entr", 1, "there is no key \"entr\""},
        {"press A", 1, "there is no key \"A\""},
        {"press 256", 1, "there is no key \"256\""},
        {"press 065", 1, "there is no key \"065\""},
        {"press f7", 1, "there is no key \"f7\""},
        {"press -1", 1, "there is no key \"-1\""},
        {"press 99999999999", 1, "there is no key"},
        {"upon \"a\"", 1, "upon takes a text and a key"},
        {"upon \"a\" b c", 1, "upon takes a text and a key"},
        {"upon sound tune", 1, "there is no key \"tune\""},
        {"upon \"a b", 1, "the closing quote is missing"},
        {"upon \"a\"b c", 1, "a blank is missing"},
        {"upon \"a\\n\" b", 1, "only \\\" and \\\\ may follow"},
        {"upon a\" b", 1, "a quote in the middle"},
        {"after 1", 1, "after takes seconds and a key"},
        {"after -1 a", 1, "is not a number of seconds"},
        {"after 1. a", 1, "is not a number of seconds"},
        {"after .5 a", 1, "is not a number of seconds"},
        {"after 1000000000.01 a", 1, "is not a number of seconds"},
        {"after 99999999999 a", 1, "is not a number of seconds"},
        {"draw", 1, "draw takes one number or more"},
        {"draw 0.5 1", 1, "\"1\" is not a number from 0 to below 1"},
        {"draw -0.1", 1, "is not a number from 0 to below 1"},
        {"draw nan", 1, "is not a number from 0 to below 1"},
        {"draw 0.5x", 1, "is not a number from 0 to below 1"},
        {"set cash", 1, "set takes fields, each with a value"},
        {"set cash 1 2", 1, "set takes fields, each with a value"},
        {"press a\nset cash lots", 2, "not a number"},
        {"set gold 1", 1, "no field gold"},
        {"show", 1, "show takes one field or more"},
        {"show cash gold", 1, "no field gold"},
        {"press a\nclock 2015-03-05 12:00:00", 2, "clock must come before"},
        {"clock 2015-03-05 12:00:00\nclock 2015-03-05 12:00:00", 2, "clock is given twice"},
        {"clock 2015-03-05", 1, "clock takes a date and a time"},
        {"clock 2015-02-29 12:00:00", 1, "is not a date"},
        {"clock 2015-3-05 12:00:00", 1, "is not a date"},
        {"clock 2015-03-05 24:00:00", 1, "is not a time of day"},
        {"clock 2015-03-05 12-00-00", 1, "is not a time of day"},
        {"draw 0\nvoices 1", 2, "voices must come before"},
        {"voices -1", 1, "is not a number of voices"},
        {"voices 1 2", 1, "voices takes one number"},
        {"voices 1\nvoices 1", 2, "voices is given twice"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const auto result = ReadScript(c.text, FakeFieldChecks());
        const auto* error = std::get_if<ScriptError>(&result);
        ASSERT_NE(error, nullptr);
        EXPECT_EQ(error->line, c.line);
        EXPECT_NE(error->what.find(c.what), std::string::npos) << error->what;
    }
}

// Which files are playable is tested with the mixer.
TEST(WaveLength, IsReadFromAStream) {
    const std::string whole =
        WaveFile(FormatChunk(1, 22050, 16) + Chunk("data", std::string(200, 'x')));
    const auto frames = [](const std::string& bytes) -> std::int64_t {
        std::istringstream file(bytes);
        const auto length = ReadWaveLength(file);
        return length ? length->frames : -1;
    };
    EXPECT_EQ(frames(whole), 100);
    EXPECT_EQ(frames(whole.substr(0, whole.size() - 101)), 49);
    EXPECT_EQ(frames("RIFF....AVI "), -1);
    EXPECT_EQ(frames(""), -1);
}

}  // namespace
}  // namespace tamlo
