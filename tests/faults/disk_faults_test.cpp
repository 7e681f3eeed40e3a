// A working day on a disk that fails: at every operation in turn, in every way. Nothing is lost
// or half written, what concerns the player is said, and the game continues.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "city/streets_file.h"
#include "faults/faulty_files.h"
#include "rehearsed_game.h"
#include "store/record_file.h"
#include "store/saved_game.h"
#include "store/settings_file.h"

namespace tamlo {
namespace {

// A choice of gender, which is stored; a trip with one order, to the corner north of the
// restaurant, and back; then quitting for the day, asked twice in case it fails once.
const std::string day =
    "press down down down down down down enter down enter\n"
    "draw 0 0 0.365 0.49 0.5\n"
    "press enter enter 3 5 right enter 3 5 right enter 3 5 right enter 3 5\n"
    "press down enter down enter\n";

constexpr const char* career = "tamlo.sav";
constexpr const char* settings = "tamlo.cfg";
constexpr const char* streets = "tamlostreets.txt";
constexpr const char* diary = "tamlolog.txt";

constexpr std::array kinds = {FaultKind::once,       FaultKind::stuck,    FaultKind::unwritable,
                              FaultKind::unreadable, FaultKind::vanished, FaultKind::folder_gone};

/// The player's files, read from one folder.
struct Contents {
    explicit Contents(const TemporaryFolder& from, const std::string& folder)
        : saved(from.Content(folder + career)),
          chosen(from.Content(folder + settings)),
          names(from.Content(folder + streets)),
          lines(from.Content(folder + diary)) {}
    std::string saved, chosen, names, lines;
};

/// One day, begun with the files that another day has left or with none.
struct FaultyDay {
    FaultyDay(bool resumed, FaultKind kind, int at)
        : files("tolvane", kind, at, game.documents / "away"), before(Begin(game, resumed)) {
        game.files = &files;
        run = game.Run(day);
        const bool gone = game.documents.Has("away");
        after.emplace(game.documents, gone ? "away/" : "tolvane/");
    }

    static Contents Begin(RehearsedGame& game, bool resumed) {
        if (resumed) game.Run(day);
        return Contents(game.documents, "tolvane/");
    }

    bool Failed(FileOperation::Kind kind, std::string_view name) const {
        const auto& all = files.Operations();
        return std::any_of(all.begin(), all.end(), [&](const FileOperation& operation) {
            return operation.kind == kind && operation.name == name && operation.failed;
        });
    }

    RehearsedGame game;
    FaultyFiles files;
    Contents before;
    Performance run;
    std::optional<Contents> after;
};

void ExpectOldOrNew(const FaultyDay& faulty, bool may_vanish) {
    const Contents& before = faulty.before;
    const Contents& after = *faulty.after;
    const bool saved = faulty.run.Heard(" game saved ");
    if (saved || after.saved != before.saved) {
        const auto game = DecodeSavedGame(after.saved);
        const bool whole = game && game->npd >= 1 && game->cash > 0;
        EXPECT_TRUE(whole || (may_vanish && after.saved.empty()));
    }
    const bool settings_stored = after.chosen == " 0\r\n 0\r\n 100\r\n 0\r\n 2\r\n";
    EXPECT_TRUE(settings_stored || after.chosen == before.chosen ||
                (may_vanish && after.chosen.empty()));
    EXPECT_TRUE(after.names == before.names || after.names.empty() ||
                ReadStreetNames(after.names).size() == std::size_t{names_in_a_city});
    EXPECT_TRUE(after.lines.empty() || after.lines.ends_with("\r\n"));
}

/// What was asked of the disk for the player's sake and failed has been told.
void ExpectTold(const FaultyDay& faulty) {
    using Kind = FileOperation::Kind;
    const struct {
        Kind kind;
        const char* file;
        const char* told;
    } sentences[] = {
        {Kind::write, career, " I 'm sorry, but the game could not be saved. "},
        {Kind::write, settings, " I 'm sorry, but your settings could not be saved. "},
        {Kind::write, streets, "the files of the game can not be written to"},
        {Kind::write, diary, "the files of the game can not be written to"},
        {Kind::read, settings, "some files of the game can not be read"},
        {Kind::read, career, " I 'm sorry, but the saved game can not be read. "},
    };
    for (const auto& sentence : sentences) {
        if (!faulty.Failed(sentence.kind, sentence.file)) continue;
        EXPECT_TRUE(faulty.run.Heard(sentence.told)) << sentence.told;
    }
    // A disk that did all it was asked to has nothing to be told of.
    const auto& all = faulty.files.Operations();
    const bool worked = std::none_of(
        all.begin(), all.end(), [](const FileOperation& operation) { return operation.failed; });
    EXPECT_FALSE(worked && faulty.run.Heard("could not be")) << faulty.run.trace;
}

/// The next start, on a disk that works again, finds nothing that it can't understand.
void ExpectNextStart(FaultyDay& faulty) {
    if (faulty.game.documents.Has("away")) return;
    DiskFiles disk;
    faulty.game.files = &disk;
    const auto next = faulty.game.Run("");
    EXPECT_FALSE(next.Heard("I 'm sorry")) << next.trace;
    EXPECT_EQ(next.Events().back(), "rest");
}

class DiskFaults : public testing::TestWithParam<bool> {};

TEST_P(DiskFaults, NothingIsLostAtAnyOperation) {
    const bool resumed = GetParam();
    const FaultyDay whole(resumed, FaultKind::once, -1);
    ASSERT_TRUE(whole.run.Heard(" game saved "));
    ASSERT_TRUE(whole.run.Heard("That will be"));
    const int operations = static_cast<int>(whole.files.Operations().size());
    ASSERT_GT(operations, 20);
    for (const FaultKind kind : kinds) {
        for (int at = 0; at < operations; ++at) {
            SCOPED_TRACE("way " + std::to_string(static_cast<int>(kind)) + ", operation " +
                         std::to_string(at));
            FaultyDay faulty(resumed, kind, at);
            EXPECT_EQ(faulty.run.exit_status, 0);
            EXPECT_TRUE(faulty.run.Heard("That will be"));  // the day has gone on
            ExpectOldOrNew(faulty, kind == FaultKind::vanished);
            ExpectTold(faulty);
            ExpectNextStart(faulty);
            if (HasFailure()) return;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Days, DiskFaults, testing::Bool(), [](const auto& day_kind) {
    return std::string(day_kind.param ? "Resumed" : "First");
});

TEST(DiskFaultsAtTheEnd, KeepTheOldRecordOrTheNewOne) {
    const std::string old = EncodeRecord({200, 0, 0, "Ann", {2010, 1, 2}});
    const std::string win =
        "press enter\nset p2d 0\nset cash 2001\nset ordopen(1) 0\n"
        "press enter 3 5 right enter 3 5 right enter 3 5 right enter 3 5\npress a l enter enter\n";
    for (const FaultKind kind : {FaultKind::once, FaultKind::stuck, FaultKind::unwritable}) {
        for (int at = 0; at < 6; ++at) {
            SCOPED_TRACE("way " + std::to_string(static_cast<int>(kind)) + ", operation " +
                         std::to_string(at));
            RehearsedGame game;
            game.Write("tamlo.rec", old);
            FaultyFiles files("tolvane/tamlo.rec", kind, at, "");
            game.files = &files;
            const auto run = game.Run(win);
            ASSERT_TRUE(run.Heard(" Which sets a new record."));
            const bool stored = game.Content("tamlo.rec") != old;
            EXPECT_NE(stored, run.Heard(" I 'm sorry, but the record could not be saved. "));
            const auto record = DecodeRecord(game.Content("tamlo.rec"));
            ASSERT_TRUE(record);
            EXPECT_EQ(record->name, stored ? "al" : "Ann");
            EXPECT_EQ(run.Events().back(), "end");
        }
    }
}

TEST(UnreadableFiles, AreLeftAsTheyAreAndTold) {
    const std::string career_lost =
        " I 'm sorry, but the saved game can not be read. A new game begins. ";
    const std::string others =
        " I 'm sorry, but some files of the game can not be read. Your settings or the names of "
        "the streets may not be your own. ";
    const std::string leave = "press enter enter 3 5 escape up enter";
    const std::string win =
        "press enter enter 3 5\nset p2d 0\nset ordx(1) -1\nset roy 24\nset roz 1\nset cash 2001\n"
        "press enter enter\npress a enter enter";
    const struct {
        const char* name;
        std::string told;
        std::string script;
    } cases[] = {{career, career_lost, ""},
                 {career, career_lost, leave},
                 {career, career_lost, win},
                 {settings, others, ""},
                 {streets, others, ""}};
    for (const auto& [name, told, script] : cases) {
        RehearsedGame game;
        game.Run(day);
        const std::string before = game.Content(name);
        ASSERT_FALSE(before.empty());
        FaultyFiles files(std::string("tolvane/") + name, FaultKind::unreadable, 0, "");
        game.files = &files;
        const auto run = game.Run(script);
        EXPECT_TRUE(run.Heard(told)) << name;
        EXPECT_EQ(run.Events().back(), script.empty() ? "rest" : "end") << name;
        EXPECT_EQ(game.Content(name), before) << name << script;
        EXPECT_FALSE(game.Has("tamlo damaged 1.sav"));
    }
}

}  // namespace
}  // namespace tamlo
