// Back at the restaurant: the trip's summary, promotions, the end of the game with the record.
#include <array>

#include "game/form1.h"
#include "services/clock.h"
#include "services/files.h"
#include "speech/menus.h"
#include "store/record_file.h"
#include "text/clock_text.h"
#include "text/number_text.h"
#include "text/play_time.h"

namespace tamlo {
namespace {

constexpr double goal = 2000;  // dollars, to be exceeded
const std::string record_name = "tamlo.rec";

struct Promotion {
    double above;  // dollars
    int from;      // vehicle
    std::string_view text;
};

constexpr std::array<Promotion, 2> promotions = {{
    {100, 1,
     " You have been promoted from the tamlo vorrel scooter to the tamlo vorrel psychedelic dune "
     "buggy. "},
    {500, 2,
     " You have been promoted from the tamlo vorrel psychedelic dune buggy  to the tamlo vorrel "
     "psychedelic van. "},
}};

void Promote(Form1& form) {
    for (const Promotion& promotion : promotions) {
        if (form.gs.cash <= promotion.above || form.gs.plast != promotion.from) continue;
        form.gs.plast = promotion.from + 1;
        form.say(promotion.text);
        form.ldwv2();
        form.setmaxa();
    }
}

void SayAndLog(Form1& form, const std::string& text) {
    form.say(text);
    form.logline(text);
}

void QueueAndLog(Form1& form, const std::string& text) {
    form.say2(text);
    form.logline(text);
}

/// The time, holder and date of a record, between words that differ by its fate.
std::string Told(const Record& old, const std::string& opening, const std::string& hours,
                 const std::string& on) {
    return opening + Plain(old.hours) + hours + Plain(old.minutes) + " minutes and " +
           Plain(old.seconds) + " seconds. by " + old.name + on + " " + Plain(old.date.month) +
           "/" + Plain(old.date.day) + "/" + Plain(old.date.year);
}

/// The new holder's name, asked until it is confirmed.
std::string AskHolder(Form1& form) {
    while (true) {
        form.clk();
        form.getter(" Enter your name as the new record holder. ");
        const std::string name = form.gs.r;
        const int answer = form.askYesNo({.question = " Is " + name + " correct for your name? ",
                                          .lead = YesNoPrompt::Lead::clear,
                                          .initial_yes = true});
        if (answer == 1) return name;
    }
}

/// What stands in the record's place on disk.
struct OldRecord {
    std::optional<Record> record;
    std::string bytes;        ///< of that record
    bool in_the_way = false;  ///< something that is no record and must not be written over
};

/// What can't be understood is put aside, told, and counts as none; so does what can't be read,
/// but that stays where it is.
OldRecord ReadRecord(Form1& form) {
    using Outcome = ReadResult::Outcome;
    ReadResult file = form.platform.files.Read(form.path(record_name));
    if (file.outcome == Outcome::missing) return {};
    if (auto record = DecodeRecord(file.bytes)) return {std::move(record), std::move(file.bytes)};
    const bool was_read = file.outcome == Outcome::ok;
    const bool aside = was_read && form.putaside(record_name);
    QueueAndLog(form, std::string(" I 'm sorry, but the old record can not be ") +
                          (was_read ? "understood. " : "read. ") +
                          (aside ? "It has been put aside. " : ""));
    return {std::nullopt, "", !aside};
}

/// Stores the record over the old one.
void StoreRecord(Form1& form, Record record, const OldRecord& old) {
    record.name = AskHolder(form);
    record.date = form.platform.clock.Today();
    const std::string bytes = OverwrittenBy(old.bytes, EncodeRecord(record));
    if (old.in_the_way || !form.platform.files.Replace(form.path(record_name), bytes)) {
        SayAndLog(form, " I 'm sorry, but the record could not be saved. ");
    }
}

void RemoveSavedGame(Form1& form) {
    const std::string saved = form.path("tamlo.sav");
    if (form.platform.files.FindFile(saved).empty()) return;
    if (!form.platform.files.Delete(saved)) {
        form.say(" I 'm sorry, but the saved game could not be deleted. ");
    }
}

}  // namespace

void Form1::comeback() {
    saytime();
    dy(2);
    stoppidl();
    bgstop();
    ppk();
    SayAndLog(*this, " you are back to The tamlo vorrel ");
    const ClockParts parts = SplitTime(gs.tit);
    gs.tit = parts.seconds;
    fm5(gs.triptips);
    const std::string summary = " your trip took " + Plain(parts.hours * 60 + parts.minutes) +
                                " minutes and " + Plain(gs.tit) + " seconds. " + " You made " +
                                gs.tp5 + " in tips.";
    dy(0.2);
    SayAndLog(*this, summary);
    dy(0.2);
    Promote(*this);
    if (gs.cash > goal) endgame();
}

void Form1::endgame() {
    dy(0.3);
    play("tamlo38");
    dy(0.2);
    stopppk();
    SayAndLog(*this,
              " You have made over two thousand dollars delivering delicious tamlos for the Tamlo "
              "Vorrel.");
    gs.nsd += gs.atod - start_of_day;
    CarryTime(gs.nhr, gs.nmt, gs.nsd);
    SayAndLog(*this, " It took you " + Plain(gs.nhr) + " hours, " + Plain(gs.nmt) +
                         " minutes and " + Plain(gs.nsd) + " seconds." + " And you delivered " +
                         CountPicture(gs.npd) + " tamlo" + (gs.npd == 1 ? "" : "s") +
                         " for the Tamlo Vorrel. ");
    checkrecord();
    say(" Thank you for playing Tamlo Delivery ");
    RemoveSavedGame(*this);
    runEnd();
}

void Form1::checkrecord() {
    const OldRecord old = ReadRecord(*this);
    const Record own{gs.nhr, gs.nmt, gs.nsd, "", {}};
    if (old.record && !own.ShorterThan(*old.record)) {
        QueueAndLog(*this, Told(*old.record, " The record is ", " hours ", " on "));
        return;
    }
    QueueAndLog(*this, " Which sets a new record.");
    QueueAndLog(*this, old.record ? Told(*old.record, " The old record was ", " Hours, ", ". on ")
                                  : " There was no previous record.");
    StoreRecord(*this, own, old);
}

}  // namespace tamlo
