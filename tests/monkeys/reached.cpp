#include "monkeys/reached.h"

#include <algorithm>
#include <array>
#include <iomanip>
#include <ostream>

#include "city/street_names.h"
#include "driving/hazards.h"
#include "driving/road_scenes.h"
#include "game/vehicles.h"
#include "prompts.h"

namespace tamlo {
namespace {

/// Beginnings of sentences whose rest differs from time to time.
constexpr auto beginnings = std::to_array<std::string_view>({
    " Is ",
    " There is already a file for ",
    " Do you wish to delete the ",
    " You have been promoted from",
    " You are at The Tamlo Vorrel",
    " I 'm sorry, but there were not enough names",
    " The officer pulls you over",
    "That will be",
    " The record is ",
    " The old record was ",
    " There is an order for ",
    " You no longer have any tamlos",
});

const std::string record_reached = "careers to the record";
const std::string quits_resumed = "quits resumed";

std::string CornerName(int street, int road) {
    return DefaultStreet(street) + " and " +
           std::string(default_roads.at(static_cast<std::size_t>(road) - 1));
}

std::string HazardName(const Hazard& hazard) {
    constexpr std::array kinds = {"crossing", "truck", "trap", "hospital"};
    return std::string("hazard: ") + kinds[static_cast<std::size_t>(hazard.kind)] + " at " +
           CornerName(hazard.street, hazard.road);
}

/// Whether a sound that is heard at the hazard's corner is its own.
bool Sounds(HazardKind kind, std::string_view sound) {
    switch (kind) {
        case HazardKind::crossing: return sound == "tamlo21" || sound == "tamlo22";
        case HazardKind::truck: return sound == "tamlo34";
        case HazardKind::trap: return sound == "tamlo25";
        case HazardKind::hospital: return sound == "tamlo23";
    }
    return false;
}

std::string SceneName(const RoadScene& scene) {
    return "scene: " + std::string(scene.sound);
}

}  // namespace

Reached::Reached() {
    for (const std::string_view text : prompts) Require("text:" + std::string(text));
    for (const std::string_view text : beginnings) Require("text:" + std::string(text) + " ...");
    for (const Hazard& hazard : hazards) Require(HazardName(hazard));
    for (const RoadScene& scene : road_scenes) Require(SceneName(scene));
    for (const Vehicle& vehicle : vehicles) {
        Require("text:" + std::string(vehicle.too_fast));
        Require("vehicle: " + std::string(vehicle.short_name));
    }
    Require(record_reached, 20);
    Require(quits_resumed, 200);
}

void Reached::Look(std::string_view lines) {
    rest_ += lines;
    std::size_t at = 0;
    for (std::size_t end = rest_.find('\n'); end != rest_.npos; end = rest_.find('\n', at)) {
        const std::string_view line = std::string_view(rest_).substr(at, end - at);
        LookAt(line.substr(line.find(' ') + 1));
        at = end + 1;
    }
    rest_.erase(0, at);
}

void Reached::LookAt(std::string_view event) {
    const std::size_t quote = event.find('"');
    if (event.starts_with("say")) {
        Heard(event.substr(quote + 1, event.size() - quote - 2));
    } else if (event.starts_with("play ")) {
        event.remove_prefix(5);
        const std::size_t blank = event.find(' ');
        Played(event.substr(0, blank), event.substr(blank).starts_with(" loop"));
    } else if (event == "end" || event == "rest") {
        corner_.clear();
    }
}

void Reached::Heard(std::string_view text) {
    std::string name = "text:" + std::string(text);
    if (const auto known = least_.find(name); known != least_.end()) ++counts_[name];
    for (const std::string_view beginning : beginnings) {
        if (text.starts_with(beginning)) ++counts_["text:" + std::string(beginning) + " ..."];
    }
    constexpr std::string_view place = " You are at the corner of ";
    if (text.starts_with(place)) {
        corner_ = text.substr(place.size(), text.find(", heading") - place.size());
    }
    if (text == " select ") corner_.clear();
    if (text.starts_with(" You have made over two thousand")) ++counts_[record_reached];
    if (text == " getting saved game. " && saved_) ++counts_[quits_resumed];
    if (text == " getting saved game. ") saved_ = false;
    if (text == " game saved ") saved_ = true;
    constexpr std::string_view driving = "You are driving the tamlo vorrel ";
    if (text.starts_with(driving)) {
        text.remove_prefix(driving.size());
        ++counts_["vehicle: " + std::string(text.substr(0, text.size() - 1))];
    }
}

void Reached::Played(std::string_view sound, bool looping) {
    if (corner_.empty()) return;
    for (const Hazard& hazard : hazards) {
        if (corner_ == CornerName(hazard.street, hazard.road) && Sounds(hazard.kind, sound)) {
            ++counts_[HazardName(hazard)];
            return;
        }
    }
    if (sound == "tamlo24" && !looping) return;  // the test sound of a dialog
    for (const RoadScene& scene : road_scenes) {
        if (scene.sound == sound) ++counts_[SceneName(scene)];
    }
}

bool Reached::Report(std::ostream& out) const {
    bool all = true;
    for (const auto& [what, least] : least_) {
        const auto found = counts_.find(what);
        const std::int64_t count = found == counts_.end() ? 0 : found->second;
        if (count < least) all = false;
        out << std::setw(9) << count << (count < least ? "  TOO RARE  " : "  ") << what << "\n";
    }
    return all;
}

}  // namespace tamlo
