#include "monkeys/witness.h"

#include <algorithm>

#include "city/streets_file.h"
#include "store/record_file.h"
#include "store/saved_game.h"

namespace tamlo {
namespace {

void Hold(bool holds, const std::string& rule) {
    if (!holds) throw BrokenRule(rule);
}

}  // namespace

void WitnessedEvents::Turn(KeyListener& listener, double rest) {
    const GameState& gs = *gs_;
    Hold(gs.rox >= 1 && gs.rox <= most_streets && gs.roy >= 1 && gs.roy <= most_roads,
         "the car stays in the city");
    Hold(gs.roz >= 1 && gs.roz <= 4, "there are four headings");
    Hold(gs.plast >= 1 && gs.plast <= 3, "there are three vehicles");
    Hold(gs.cash >= 0 && gs.npd >= 0, "money and tamlos are never owed");
    const auto open = static_cast<int>(std::count(gs.ordopen.begin(), gs.ordopen.end(), 1));
    Hold(gs.p2d == open, "the orders to deliver are the open ones");
    if (orders_ > 0) {
        Hold(gs.atod >= clock_, "the game clock never goes back within a trip");
        Hold(gs.tit >= trip_, "the trip's clock never goes back");
    }
    orders_ = open;
    clock_ = gs.atod;
    trip_ = gs.tit;
    events_.Turn(listener, rest);
}

void LookAtFiles(const TemporaryFolder& documents) {
    const auto read = [&](const char* name) {
        return documents.Content(std::string("tolvane/") + name);
    };
    if (documents.Has("tolvane/tamlo.sav")) {
        Hold(DecodeSavedGame(read("tamlo.sav")).has_value(), "the saved game can be read");
    }
    if (documents.Has("tolvane/tamlo.rec")) {
        Hold(DecodeRecord(read("tamlo.rec")).has_value(), "the record can be read");
    }
    if (documents.Has("tolvane/tamlo.cfg")) {
        const std::string settings = read("tamlo.cfg");
        Hold(std::count(settings.begin(), settings.end(), '\n') == 5, "there are five settings");
    }
    const std::string streets = read("tamlostreets.txt");
    if (!streets.empty()) {
        Hold(ReadStreetNames(streets).size() == static_cast<std::size_t>(names_in_a_city),
             "the default streets are whole");
    }
    Hold(read("tamlolog.txt").ends_with("\r\n"), "the log ends with a whole line");
}

}  // namespace tamlo
