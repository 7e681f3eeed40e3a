// Back at the restaurant: the trip's summary, promotions, the end of the game with the record.
#include "game/form1.h"
#include "game/vehicles.h"
#include "orders/sentences.h"
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

/// Gives the driver better vehicles, one after the other, for as long as the cash suffices.
void Promote(Form1& form) {
    GameState& gs = form.gs;
    while (VehicleOf(gs.plast) != nullptr) {
        const Vehicle* next = VehicleOf(gs.plast + 1);
        if (next == nullptr || gs.cash <= next->earned_above) return;
        ++gs.plast;
        form.say(next->promotion);
        form.ldwv2();
        form.setmaxa();
    }
}

/// The time, holder and date of a record, joined by words that differ between a kept and a beaten
/// one.
std::string Told(const Record& old, const std::string& opening, const std::string& hours,
                 const std::string& on) {
    return opening + Plain(old.hours) + hours + Plain(old.minutes) + " minutes and " +
           Plain(old.seconds) + " seconds. by " + old.name + on + " " + Plain(old.date.month) +
           "/" + Plain(old.date.day) + "/" + Plain(old.date.year);
}

/// Asks for the new holder's name until it is confirmed.
std::string AskHolder(Form1& form) {
    while (true) {
        form.clk();
        form.getter(" Enter your name as the new record holder. ");
        std::string name = form.gs.r;
        const int answer = form.askYesNo({.question = " Is " + name + " correct for your name? ",
                                          .lead = YesNoPrompt::Lead::clear,
                                          .initial_yes = true});
        if (answer == 1) return name;
    }
}

/// The record file as it was found.
struct OldRecord {
    std::optional<Record> record;
    std::string bytes;        ///< its content
    bool in_the_way = false;  ///< the file holds something else that must not be overwritten
};

/// A file that can't be decoded is renamed, and one that can't be read stays in place. The player
/// is told, and both count as no record.
OldRecord ReadRecord(Form1& form) {
    using Outcome = ReadResult::Outcome;
    ReadResult file = form.platform.files.Read(form.path(record_name));
    if (file.outcome == Outcome::missing) return {};
    if (auto record = DecodeRecord(file.bytes)) return {std::move(record), std::move(file.bytes)};
    const bool was_read = file.outcome == Outcome::ok;
    const bool aside = was_read && form.putaside(record_name);
    form.say2log(std::string(" I 'm sorry, but the old record can not be ") +
                 (was_read ? "understood. " : "read. ") + (aside ? "It has been put aside. " : ""));
    return {std::nullopt, "", !aside};
}

/// Stores the record over the old one.
void StoreRecord(Form1& form, Record record, const OldRecord& old) {
    record.name = AskHolder(form);
    record.date = form.platform.clock.Today();
    const std::string bytes = OverwrittenBy(old.bytes, EncodeRecord(record));
    if (old.in_the_way || !form.platform.files.Replace(form.path(record_name), bytes)) {
        form.saylog(" I 'm sorry, but the record could not be saved. ");
    }
}

}  // namespace

void Form1::comeback() {
    saytime();
    dy(2);
    stoppidl();
    bgstop();
    ppk();
    saylog(" you are back to The tamlo vorrel ");
    const ClockParts parts = SplitTime(gs.tit);
    gs.tit = parts.seconds;
    const std::string tips = money(gs.triptips);
    dy(0.2);
    saylog(" your trip took " + Plain(parts.hours * 60 + parts.minutes) + " minutes and " +
           Plain(gs.tit) + " seconds. " + " You made " + tips + " in tips.");
    dy(0.2);
    Promote(*this);
    if (gs.cash > goal) endgame();
}

void Form1::endgame() {
    dy(0.3);
    play("tamlo38");
    dy(0.2);
    stopppk();
    saylog(
        " You have made over two thousand dollars delivering delicious tamlos for the Tamlo "
        "Vorrel.");
    gs.nsd += gs.atod - start_of_day;
    CarryTime(gs.nhr, gs.nmt, gs.nsd);
    saylog(" It took you " + Plain(gs.nhr) + " hours, " + Plain(gs.nmt) + " minutes and " +
           Plain(gs.nsd) + " seconds. And you " + TamlosDelivered(gs.npd));
    checkrecord();
    say(" Thank you for playing Tamlo Delivery ");
    endsaga();
    runEnd();
}

void Form1::checkrecord() {
    const OldRecord old = ReadRecord(*this);
    const Record own{gs.nhr, gs.nmt, gs.nsd, "", {}};
    if (old.record && !own.ShorterThan(*old.record)) {
        say2log(Told(*old.record, " The record is ", " hours ", " on "));
        return;
    }
    say2log(" Which sets a new record.");
    say2log(old.record ? Told(*old.record, " The old record was ", " Hours, ", ". on ")
                       : " There was no previous record.");
    StoreRecord(*this, own, old);
}

}  // namespace tamlo
