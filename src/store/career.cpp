// The career between days: quitting for the day, resuming, deleting the saved game.
#include "game/form1.h"
#include "game/vehicles.h"
#include "orders/sentences.h"
#include "services/desktop.h"
#include "services/end_of_process.h"
#include "services/files.h"
#include "speech/menus.h"
#include "store/saved_game.h"
#include "text/number_text.h"
#include "text/play_time.h"

namespace tamlo {
namespace {

constexpr double wage = 3.14;  // dollars an hour

const std::string saved_game_name = "tamlo.sav";
/// The fields that the saved game holds.
SavedGame CareerOf(const GameState& gs) {
    return {gs.cash, gs.plast, gs.nhr, gs.nmt, gs.nsd, gs.npd};
}

void Resume(GameState& gs, const SavedGame& career) {
    gs.cash = career.cash;
    gs.plast = career.plast;
    gs.nhr = career.nhr;
    gs.nmt = career.nmt;
    gs.nsd = career.nsd;
    gs.npd = career.npd;
}

/// A working day's time and wage.
struct DaysWork {
    double seconds = 0;  // worked, by the game clock
    double hours = 0;    // the same, rounded to two decimals
    double pay = 0;      // dollars

    explicit DaysWork(double worked)
        : seconds(worked), hours(Rounded(worked / 3600, 2)), pay(Rounded(hours * wage, 2)) {}
};

/// Adds the day to the career.
void AddDay(GameState& gs, const DaysWork& day) {
    gs.cash += day.pay;
    gs.nsd += day.seconds;
    CarryTime(gs.nhr, gs.nmt, gs.nsd);
}

void TellHours(Form1& form, double hours) {
    const std::string text = " Today you worked " + MoneyPicture(hours) + " hour" +
                             (hours == 1 ? "" : "s") + " for the tamlo vorrel. ";
    form.dy(0.2);
    form.say(text);
    form.dy(0.2);
    if (hours * wage > 0.99) form.play("tamlo81");
    form.play("tamlo85");
    form.dy(0.2);
    form.logline(text);
    form.dy(0.2);
}

/// Speaks and logs the day's summary. The career already includes the day.
void TellDay(Form1& form, const DaysWork& day) {
    TellHours(form, day.hours);
    form.saylog(" You are paid, " + form.money(day.pay));
    form.dy(0.2);
    form.saylog(" You now have, " + form.money(Rounded(form.gs.cash, 2)));
    form.logsay(" You have " + TamlosDelivered(form.gs.npd));
    form.dy(0.2);
}

/// Stores the career. A file that could not be decoded before is never overwritten.
bool Save(Form1& form) {
    GameState& gs = form.gs;
    if (gs.badsave == 1) {
        if (!form.putaside(saved_game_name)) return false;
        gs.badsave = 0;
    }
    return form.platform.files.Replace(form.path(saved_game_name), EncodeSavedGame(CareerOf(gs)));
}

/// A saved game that can't be decoded is renamed, and the player is told. One that can't even be
/// read stays in place, since it may be readable at the next start.
void LoseCareer(Form1& form, bool was_read) {
    form.logline("");
    std::string text = std::string(" I 'm sorry, but the saved game can not be ") +
                       (was_read ? "understood. " : "read. ");
    if (was_read && form.putaside(saved_game_name)) {
        text += "It has been put aside, and a new game begins. ";
    } else {
        form.gs.badsave = 1;
        text += "A new game begins. ";
    }
    form.logsay(text);
}

std::string WorkedSoFar(const GameState& gs) {
    const auto plural = [](double number) { return number > 1 ? "s" : ""; };
    std::string text = " You have been working at the tamlo vorrel for ";
    if (gs.nhr > 0) text += Plain(gs.nhr) + " hour" + plural(gs.nhr);
    text += " " + Plain(gs.nmt) + " minute" + plural(gs.nmt) + " and " + Plain(gs.nsd) + " second" +
            plural(gs.nsd) + ". ";
    if (gs.npd > 0) text += " You have " + TamlosDelivered(gs.npd);
    return text;
}

void TellCareer(Form1& form) {
    GameState& gs = form.gs;
    form.logline("");
    form.logsay(WorkedSoFar(gs));
    form.logsay("You have " + form.money(gs.cash) + ".");
    form.saylog("You are driving the tamlo vorrel " + std::string(VehicleOf(gs.plast)->short_name) +
                ".");
}

}  // namespace

// The summary takes ten seconds. The day is stored before it, so that it is not lost if the player
// leaves or the machine fails meanwhile.
bool Form1::saga() {
    const SavedGame before = CareerOf(gs);
    const DaysWork day(gs.atod - start_of_day);
    AddDay(gs, day);
    const bool saved = Save(*this);
    TellDay(*this, day);
    stopppk();
    if (saved) {
        say(" game saved ");
        return true;
    }
    Resume(gs, before);  // so that a later quit counts and pays the day once
    say(" I 'm sorry, but the game could not be saved. ");
    ppk();
    return false;
}

void Form1::gesaga() {
    const ReadResult file = platform.files.Read(path(saved_game_name));
    if (file.outcome == ReadResult::Outcome::missing) {
        startlog();
        return;
    }
    dy(0.3);
    say2(" getting saved game. ");
    const auto game = DecodeSavedGame(file.bytes);
    dy(0.3);
    if (!game) {
        LoseCareer(*this, file.outcome == ReadResult::Outcome::ok);
        return;
    }
    Resume(gs, *game);
    TellCareer(*this);
}

void Form1::desag() {
    if (platform.files.FindFile(path(saved_game_name)).empty()) {
        dy(0.3);
        say(" There is no saved game to delete ");
        dy(0.3);
        return;
    }
    const int answer =
        askYesNo({.question = " Are you sure that you wish to delete the saved game? ",
                  .spoken_in_full = true,
                  .pause_before_answer = true});
    if (answer != 1) return;
    say(" deleting saved game ");
    if (!removesaga()) return;
    say(" restarting game ");
    platform.desktop.StartGame();
    throw EndOfProcess{};
}

void Form1::endsaga() {
    if (gs.badsave == 0) removesaga();
}

bool Form1::removesaga() {
    const std::string saved = path(saved_game_name);
    if (platform.files.FindFile(saved).empty() || platform.files.Delete(saved)) return true;
    say(" I 'm sorry, but the saved game could not be deleted. ");
    return false;
}

}  // namespace tamlo
