// A real pseudo-terminal: its settings, its keys, its end; and printing where nobody reads.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <thread>

#include "audio/eventually.h"
#include "linux/system/system_clock.h"
#include "linux/terminal/terminal_events.h"
#include "linux/terminal/terminal_front_end.h"
#include "services/end_of_process.h"
#include "temporary_folder.h"

namespace tamlo {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class Pressed : public KeyListener {
  public:
    void Form_KeyDown(int code, int) override { codes.push_back(code); }
    std::vector<int> codes;
};

class TerminalTest : public ::testing::Test {
  protected:
    TerminalTest() {
        int player = -1;
        int game = -1;
        EXPECT_EQ(::openpty(&player, &game, nullptr, nullptr, nullptr), 0);
        player_ = Descriptor(player);
        game_ = Descriptor(game);
        mode_.emplace(game);
        Open();
    }
    /// As a fresh process would.
    void Open() {
        events_.reset();
        keys_.reset();
        signals_.reset();
        signals_.emplace();
        keys_.emplace(game_.Number(), Gaps::kept, clock_, *signals_);
        events_.emplace(*keys_, *mode_, *signals_);
    }

    void Send(std::string_view bytes) {
        ASSERT_EQ(::write(player_.Number(), bytes.data(), bytes.size()),
                  static_cast<ssize_t>(bytes.size()));
    }
    tcflag_t LocalModes() const {
        termios settings = {};
        ::tcgetattr(game_.Number(), &settings);
        return settings.c_lflag;
    }
    /// Turns until so many keys have come; the test's own time limit ends a wait in vain.
    std::vector<int> Keys(std::size_t count) {
        Pressed pressed;
        while (pressed.codes.size() < count) events_->Turn(pressed, until_event);
        return pressed.codes;
    }
    std::string ReasonOfEnd(const std::function<void()>& act) {
        try {
            act();
        } catch (const EndOfProcess& end) {
            return end.reason;
        }
        return "none";
    }

    Descriptor player_;
    Descriptor game_;
    SystemClock clock_;
    std::optional<SignalWatch> signals_;
    std::optional<TerminalMode> mode_;
    std::optional<KeyInput> keys_;
    std::optional<TerminalEvents> events_;
};

TEST_F(TerminalTest, KeysComeAtOnceAndTheTerminalIsGivenBack) {
    EXPECT_EQ(LocalModes() & (ICANON | ECHO | ISIG), static_cast<tcflag_t>(ISIG));
    Send("a\x1b[A\r");
    EXPECT_THAT(Keys(3), ElementsAre(65, 38, 13));
    Send("\x1b");
    EXPECT_THAT(Keys(1), ElementsAre(27)) << "after its time, without another byte";
    mode_.reset();
    EXPECT_EQ(LocalModes() & (ICANON | ECHO), static_cast<tcflag_t>(ICANON | ECHO));
}

TEST_F(TerminalTest, ATurnBringsOneKeyAndDoesNotOversleep) {
    Send("ab");
    Pressed pressed;
    events_->Turn(pressed, until_event);
    EXPECT_EQ(pressed.codes.size(), 1U);
    for (int turn = 0; turn < 3; ++turn) events_->Turn(pressed, until_event);
    EXPECT_THAT(pressed.codes, ElementsAre(65, 66));
    const auto before = clock_.Steady();
    events_->Turn(pressed, 0.05);
    EXPECT_GE(clock_.Steady() - before, std::chrono::milliseconds(50));
    events_->Turn(pressed, until_event);
    EXPECT_LT(clock_.Steady() - before, std::chrono::seconds(10)) << "no wait is for ever";
    EXPECT_EQ(pressed.codes.size(), 2U);
}

// As in a window, whose queue is handed over whole.
TEST_F(TerminalTest, OfTheKeysPressedDuringABlockingWaitTheLastRemains) {
    const auto turns = [&](int count) {
        Pressed pressed;
        for (int turn = 0; turn < count; ++turn) events_->Turn(pressed, 0);
        return pressed.codes;
    };
    Send("x");
    EXPECT_THAT(Keys(1), ElementsAre(88));
    for (const char* keys : {"ab", "\x1b[A", "C", "\x1b[Bd"}) {
        Send(keys);
        events_->Pump();
    }
    Send("e\x1b[C");  // after the last look of the wait
    EXPECT_THAT(turns(1), ElementsAre(39)) << "in the first turn";
    EXPECT_THAT(turns(12), ElementsAre());

    // What was pressed before the wait is not lost, and keeps its distance.
    Send("12");
    EXPECT_THAT(turns(1), ElementsAre(49));
    Send("34");
    events_->Pump();
    EXPECT_THAT(turns(12), ElementsAre(50, 52));
    Send("56");
    EXPECT_THAT(turns(12), ElementsAre(53, 54));
}

TEST_F(TerminalTest, SignalsEndTurnsAndBlockingWaits) {
    const struct {
        int signal;
        const char* reason;
    } cases[] = {{SIGINT, "interrupted"}, {SIGTERM, "asked to end"}, {SIGHUP, "closed"}};
    for (const auto& c : cases) {
        // A thread of its own, so that the sleep is what the signal ends.
        std::thread sender([pid = ::getpid(), signal = c.signal] {
            ::usleep(20000);
            ::kill(pid, signal);
        });
        Pressed nobody;
        EXPECT_THAT(ReasonOfEnd([&] {
                        for (;;) events_->Turn(nobody, until_event);
                    }),
                    HasSubstr(c.reason));
        sender.join();
        EXPECT_THAT(ReasonOfEnd([&] { events_->Pump(); }), HasSubstr(c.reason)) << "still asked";
        Open();
        EXPECT_EQ(ReasonOfEnd([&] { events_->Pump(); }), "none");
    }
}

TEST_F(TerminalTest, AHungUpTerminalEndsTheGame) {
    Send("a");
    EXPECT_EQ(ReasonOfEnd([&] { events_->Pump(); }), "none");
    EXPECT_THAT(Keys(1), ElementsAre(65));
    player_.Close();
    Pressed nobody;
    EXPECT_THAT(ReasonOfEnd([&] { events_->Pump(); }), HasSubstr("closed"));
    EXPECT_THAT(ReasonOfEnd([&] { events_->Turn(nobody, 0); }), HasSubstr("closed"));
}

TEST_F(TerminalTest, AStopGivesTheTerminalBackUntilItIsContinued) {
    mode_->Leave();
    // In a session of its own, so that stopping is what the shell, this test, is told of.
    const pid_t child = ::fork();
    if (child == 0) {
        ::setpgid(0, 0);
        SignalWatch signals;
        TerminalMode mode(game_.Number());
        KeyInput keys(game_.Number(), Gaps::kept, clock_, signals);
        TerminalEvents events(keys, mode, signals);
        Pressed pressed;
        while (pressed.codes.empty()) events.Turn(pressed, until_event);
        ::_exit(pressed.codes.front());
    }
    const auto raw_is = [&](bool raw) {
        return Eventually([&] { return ((LocalModes() & ICANON) == 0) == raw; });
    };
    ASSERT_TRUE(raw_is(true));
    ::kill(child, SIGTSTP);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, WUNTRACED), child);
    EXPECT_TRUE(WIFSTOPPED(status));
    EXPECT_TRUE(raw_is(false));
    ::kill(child, SIGCONT);
    EXPECT_TRUE(raw_is(true));
    Send("q");
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 'Q');
}

TEST_F(TerminalTest, TheCursorRestsOnTheNewestLine) {
    const winsize narrow = {24, 10, 0, 0};
    ::ioctl(game_.Number(), TIOCSWINSZ, &narrow);
    {
        LinePrinter printer(
            game_.Number(), LinePrinter::WhenStuck::drop, [] {}, LinePrinter::Cursor::at_line);
        for (const char* line : {"one", "", "twice ten and one", "ten cells."}) printer.Print(line);
    }
    const std::string expected = "one\r\r\ntwice ten\r\nand one\r\x1b[1A\r\n\r\nten cells.\r\r\n";
    std::string printed;
    char byte = 0;  // a terminal passes on what is written in pieces
    pollfd output = {player_.Number(), POLLIN, 0};
    while (printed.size() < expected.size() && ::poll(&output, 1, 5000) == 1 &&
           ::read(player_.Number(), &byte, 1) == 1) {
        printed += byte;
    }
    EXPECT_EQ(printed, expected);
}

TEST_F(TerminalTest, TheMessageBoxIsClosedByEnter) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const Descriptor read_end(ends[0]);
    const Descriptor write_end(ends[1]);
    LinePrinter printer(ends[1], LinePrinter::WhenStuck::wait, [] {});
    Send("x\r");
    ShowMessage("Sorry\rPlease contact", *events_, printer);
    char printed[100];
    const ssize_t count = ::read(ends[0], printed, sizeof printed);
    EXPECT_EQ(std::string(printed, static_cast<std::size_t>(std::max<ssize_t>(count, 0))),
              "Sorry\nPlease contact\nPress Enter.\n");
}

TEST_F(TerminalTest, AnEditorGetsTheTerminalAsItWas) {
    const TemporaryFolder folder;
    folder.Write("edit", "#!/bin/sh\necho \"$1\" > \"$3\"\n");
    std::filesystem::permissions(folder / "edit", std::filesystem::perms::owner_all);
    ::setenv("VISUAL", "no-such-editor --wait", 1);
    ::setenv("EDITOR", ((folder / "edit") + " +1 two").c_str(), 1);
    LinePrinter printer(game_.Number(), LinePrinter::WhenStuck::drop, [] {});
    EXPECT_TRUE(EditInTerminal(folder / "my streets.txt", *mode_, printer));
    EXPECT_EQ(folder.Content("my streets.txt"), "+1\n");
    EXPECT_EQ(LocalModes() & ICANON, 0U) << "and the game has it back";
}

TEST(LinePrinterTest, NobodyReadingNeverEndsOrHoldsTheGame) {
    ::signal(SIGPIPE, SIG_IGN);
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    Descriptor read_end(ends[0]);
    const Descriptor write_end(ends[1]);
    int waited = 0;
    const std::string long_line(100000, 'x');
    LinePrinter dropping(ends[1], LinePrinter::WhenStuck::drop, [&] { ++waited; });
    dropping.Print(long_line);
    EXPECT_GT(waited, 0);
    waited = 0;
    for (int i = 0; i < 50; ++i) dropping.Print("more");
    EXPECT_LE(waited, 50) << "only the first line is waited for";

    LinePrinter waiting(ends[1], LinePrinter::WhenStuck::wait, [] { throw EndOfProcess{}; });
    EXPECT_THROW(waiting.Print(long_line), EndOfProcess);

    read_end.Close();
    LinePrinter broken(ends[1], LinePrinter::WhenStuck::wait, [] { FAIL(); });
    ::testing::internal::CaptureStderr();
    broken.Print("lost");
    broken.Print("lost too");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(),
              "Nothing more can be printed; the game goes on by voice.\n");
}

}  // namespace
}  // namespace tamlo
