// What is heard on a trip in each vehicle, measured on its recording, and that the measures tell
// when something is wrong.
#include "recording/mix_measures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <iostream>
#include <sstream>

#include "recording/recorded_game.h"

namespace tamlo {
namespace {

struct Corner {
    int street, road;
    const char* speed;
    const char* draws;  ///< from the background on, see checkspec
};

// The first hazards: a crossing with each train, the truck, a trap, a hospital. Then a scene each.
const std::vector<Corner> corners[] = {
    {{56, 23, "3 5", "0 0.1 0.5 0.1"},
     {45, 23, "3 5", "0.3 0.1 0.5 0.9"},
     {51, 25, "3 5", "0.6 0.1 0.5"},
     {54, 24, "4 0", "0.9 0.5"},
     {52, 19, "3 5", "0 0.5 0"},
     {58, 25, "3 5", "0.3 0.51 0.1 0.1 0.5"},
     {58, 25, "3 5", "0.6 0.51 0.35 0.9 0.5"},
     {58, 25, "3 5", "0.9 0.51 0.97 0.1 0.5"},
     {58, 25, "3 5", "0 0.51 0.79 0.9 0.5"}},
    {{56, 23, "3 5", "0.3 0.1 0.5 0.9"},
     {51, 25, "3 5", "0.6 0.9 0.5"},
     {47, 22, "4 0", "0.9 0.5"},
     {46, 26, "3 5", "0 0.5 0"},
     {58, 25, "3 5", "0.3 0.51 0.15 0.1 0.5"},
     {58, 25, "3 5", "0.6 0.51 0.2 0.5"},
     {58, 25, "3 5", "0.9 0.51 0.42 0.9 0.5"},
     {58, 25, "3 5", "0 0.51 0.85 0.1 0.5"}},
    {{45, 23, "3 5", "0.6 0.1 0.5 0.1"},
     {51, 25, "3 5", "0 0.1 0.5"},
     {53, 19, "4 0", "0.3 0.5"},
     {52, 19, "3 5", "0.9 0.5 0"},
     {58, 25, "3 5", "0 0.51 0.6 0.1 0.5"},
     {58, 25, "3 5", "0.3 0.51 0.7 0.9 0.5"},
     {58, 25, "3 5", "0.6 0.51 0.01 0.5"},
     {58, 25, "3 5", "0.9 0.51 0.91 0.1 0.5"}},
};

/// A trip from a saved game, put to each corner from the east.
std::string TripScript(int vehicle) {
    std::ostringstream script;
    script << "clock 2015-03-05 12:00:00\ndraw 0 0 0.365 0.42 0.5\npress enter\npress enter 3 5\n";
    for (const Corner& corner : corners[vehicle - 1]) {
        script << "set rox " << corner.street + 1 << "\nset roy " << corner.road
               << "\nset roz 4\ndraw " << corner.draws << "\npress enter " << corner.speed << "\n";
    }
    return script.str();
}

struct Line {
    Span span;
    std::string text;
};

/// The spoken lines of the trip from the first street on.
std::vector<Line> DrivingLines(const RecordedTrip& trip) {
    std::vector<Line> lines;
    std::istringstream in(trip.lines);
    const auto seconds = [](const std::string& text) {
        return std::stod(text.substr(0, 2)) * 3600 + std::stod(text.substr(3, 2)) * 60 +
               std::stod(text.substr(6));
    };
    bool driving = false;
    for (std::string times, text; std::getline(in, times);) {
        if (times.find(" --> ") == times.npos || !std::getline(in, text)) continue;
        driving = driving || text.starts_with("How fast");
        if (driving && text[0] != '[')
            lines.push_back({{seconds(times), seconds(times.substr(17))}, text});
    }
    return lines;
}

struct Figures {
    double lufs = 0, true_peak = 0;
    std::vector<double> clicks;
    double speech_above = 0;    ///< all else, over all lines, in LU
    double least_above = 1000;  ///< of a line, the loudest second of all else below it
    double pan_error = 0;       ///< the largest, in dB
    int pans = 0;
    double fade_in = 0;       ///< of the ambulance, in dB
    float voice_between = 0;  ///< the highest peak of the voice between its lines
};

void Append(Stereo& to, std::span<const float> part) {
    to.insert(to.end(), part.begin(), part.end());
}

void MeasureSpeech(const RecordedTrip& trip, Figures& figures) {
    Stereo rest = trip.effects;
    for (std::size_t i = 0; i < rest.size(); ++i) rest[i] += trip.backgrounds[i];
    Stereo spoken, meanwhile;
    double last_end = 1e9;
    for (const Line& line : DrivingLines(trip)) {
        if (line.span.begin > last_end + 0.2)
            figures.voice_between =
                std::max(figures.voice_between,
                         PeakOf(PartOf(trip.voice, {last_end + 0.05, line.span.begin - 0.05})));
        last_end = line.span.end;
        if (line.span.end - line.span.begin < 0.5) continue;
        const auto voice = PartOf(trip.voice, line.span), others = PartOf(rest, line.span);
        Append(spoken, voice);
        Append(meanwhile, others);
        figures.least_above =
            std::min(figures.least_above, LoudnessOf(voice) - LoudestSecond(others));
    }
    figures.speech_above = LoudnessOf(spoken) - LoudnessOf(meanwhile);
}

/// Whether each side is as loud as the pan says, where one sound alone is panned.
void MeasurePans(const RecordedTrip& trip, Figures& figures) {
    std::vector<double> full, faded;  // peaks of the ambulance in dB, on its way up and down
    for (const TraceLine& line : trip.trace.lines) {
        std::istringstream words(line.event);
        std::string event, name;
        int value = 0;
        words >> event >> name >> value;
        const auto part = PartOf(trip.effects, {line.seconds + 0.02, line.seconds + 0.09});
        if (event == "setpan" && name != "tamlo87" && name != "tamlo34" && PeakOf(part) > 0.003) {
            ++figures.pans;
            figures.pan_error =
                std::max(figures.pan_error, std::abs(RightAboveLeft(part) - value / 100.0));
        }
        if (event != "setvolume" || name != "tamlo23") continue;
        const auto next = PartOf(trip.effects, {line.seconds, line.seconds + 0.06});
        const double level = 20 * std::log10(PeakOf(next) + 1e-6);
        if (value == 0) full.push_back(level);
        if (value == -950) faded.push_back(level);
    }
    for (const double level : full) figures.fade_in += level / static_cast<double>(full.size());
    for (const double level : faded) figures.fade_in -= level / static_cast<double>(faded.size());
}

Figures Measure(const RecordedTrip& trip) {
    Figures figures;
    figures.lufs = LoudnessOf(trip.mix);
    figures.true_peak = TruePeak(trip.mix);
    figures.clicks = Clicks(trip.mix);
    MeasureSpeech(trip, figures);
    MeasurePans(trip, figures);
    return figures;
}

std::ostream& operator<<(std::ostream& out, const Figures& figures) {
    return out << figures.lufs << " LUFS, true peak " << figures.true_peak << " dB, "
               << figures.clicks.size() << " clicks; speech " << figures.speech_above
               << " LU above all else, " << figures.least_above
               << " above the loudest second; pan within " << figures.pan_error << " dB at "
               << figures.pans << " steps; the ambulance comes up by " << figures.fade_in
               << " dB; voice between lines " << figures.voice_between;
}

std::vector<std::string> Faults(const Figures& figures) {
    std::vector<std::string> faults;
    const auto fault = [&](bool is_one, const char* what) {
        if (is_one) faults.emplace_back(what);
    };
    fault(std::abs(figures.lufs + 20) > 2, "loudness");
    fault(figures.true_peak > -1, "peak");
    fault(!figures.clicks.empty(), "click");
    fault(figures.speech_above < 10 || figures.least_above < 6, "speech");
    fault(figures.pan_error > 0.5 || figures.pans < 60, "pan");
    fault(std::abs(figures.fade_in - 9.5) > 2.5, "fade");
    fault(figures.voice_between > 0.001F, "silence");
    return faults;
}

class Trips : public testing::TestWithParam<int> {};

TEST_P(Trips, AreHeardAsTheyShould) {
    const RecordedTrip trip =
        RecordTrip(TripScript(GetParam()), ".wav", {}, SavedGame{.cash = 10, .plast = GetParam()});
    const Figures figures = Measure(trip);
    RecordProperty("figures", (std::ostringstream() << figures).str());
    std::cout << figures << "\n";
    EXPECT_THAT(Faults(figures), testing::IsEmpty());
    for (const double click : figures.clicks) ADD_FAILURE() << "a click at " << click;
}

INSTANTIATE_TEST_SUITE_P(InEachVehicle, Trips, testing::Values(1, 2, 3));

TEST(Measures, TellWhatIsWrong) {
    RecordedTrip trip = RecordTrip(TripScript(2), ".wav", {}, SavedGame{.cash = 10, .plast = 2});
    RecordedTrip soft = trip, stuck = trip, click = trip;
    for (float& sample : soft.voice) sample *= 0.25F;
    for (std::size_t i = 0; i < stuck.effects.size(); i += 2)
        stuck.effects[i] = stuck.effects[i + 1];
    const double quiet = DrivingLines(trip).back().span.end + 2;
    click.mix[static_cast<std::size_t>(quiet * stream_rate) * 2] += 0.1F;
    EXPECT_THAT(Faults(Measure(soft)), testing::Contains("speech"));
    EXPECT_THAT(Faults(Measure(stuck)), testing::Contains("pan"));
    EXPECT_THAT(Faults(Measure(click)), testing::Contains("click"));
}

}  // namespace
}  // namespace tamlo
