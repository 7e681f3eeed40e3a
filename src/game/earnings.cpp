// Back at the restaurant: the trip's summary, promotions, the end of the game with the record.
#include <array>

#include "game/form1.h"
#include "game/play_time.h"
#include "orders/clock_text.h"
#include "orders/number_text.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "speech/menus.h"
#include "store/record_file.h"

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

/// The record on disk; what can't be understood is put aside, told, and counts as none.
std::optional<Record> OldRecord(Form1& form, std::string& bytes) {
    if (form.platform.files.FindFile(form.path(record_name)).empty()) return std::nullopt;
    bytes = form.platform.files.Read(form.path(record_name)).bytes;
    auto record = DecodeRecord(bytes);
    if (record) return record;
    bytes.clear();
    const bool aside = form.putaside(record_name);
    QueueAndLog(form, std::string(" I 'm sorry, but the old record can not be understood. ") +
                          (aside ? "It has been put aside. " : ""));
    return std::nullopt;
}

/// Stores the record over the old one; one that could not be put aside is not written over.
void StoreRecord(Form1& form, Record record, const std::string& old_bytes) {
    record.name = AskHolder(form);
    record.date = form.platform.clock.Today();
    Files& files = form.platform.files;
    const bool in_the_way = old_bytes.empty() && !files.FindFile(form.path(record_name)).empty();
    const std::string bytes = OverwrittenBy(old_bytes, EncodeRecord(record));
    if (in_the_way || !files.Replace(form.path(record_name), bytes)) {
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
    std::string old_bytes;
    const std::optional<Record> old = OldRecord(*this, old_bytes);
    const Record own{gs.nhr, gs.nmt, gs.nsd, "", {}};
    if (old && !own.ShorterThan(*old)) {
        QueueAndLog(*this, Told(*old, " The record is ", " hours ", " on "));
        return;
    }
    QueueAndLog(*this, " Which sets a new record.");
    QueueAndLog(*this, old ? Told(*old, " The old record was ", " Hours, ", ". on ")
                           : " There was no previous record.");
    StoreRecord(*this, own, old_bytes);
}

}  // namespace tamlo
