// The captions of the game: sounds and their movements.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include "app/sounds/sound_meanings.h"
#include "reading/captioned_sound.h"
#include "reading/captioned_speech.h"
#include "rehearsed_game.h"

namespace tamlo {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

/// The captions of some operations of the game.
std::vector<std::string> CaptionsOf(const std::string& script,
                                    const std::function<void(Form1&)>& act) {
    RehearsedGame game;
    std::vector<std::string> lines;
    std::optional<Captions> captions;
    std::optional<CaptionedSound> sound;
    game.Perform(script, [&](Form1& form) {
        captions.emplace(MeaningOfSound, form.platform.clock,
                         [&](const std::string& line) { lines.push_back(line); });
        sound.emplace(form.platform.sound, *captions);
        form.gs.ds8 = sound->CreateDevice();
        form.ldwv();
        act(form);
    });
    return lines;
}

TEST(CaptionsTest, ScenesAreToldWithTheirWay) {
    const std::vector<std::string> scenes = {
        "[ambulance, comes near and goes away]",
        "[old car with a bulb horn, right to left]",
        "[bicycle, left to right]",
        "[a near miss: tyres and an angry horn]",
        "[truck, right to left]",
        "[ice-cream van, left to right]",
        "[marching band, right to left]",
        "[jogger, left to right]",
        "[horse and carriage, right to left]",
        "[shopping trolley, left to right]",
        "[skateboard, right to left]",
        "[dog running by, left to right]",
        "[helicopter, right to left]",
        "[city bus, left to right, halting]",
        "[motorbikes, one behind the other, right to left]",
        "[tram, left to right]",
        "[sports car, right to left]",
    };
    std::string sides = "draw";
    for (int i = 0; i < 15; ++i) sides += i % 2 == 0 ? " 0" : " 0.9";
    EXPECT_THAT(CaptionsOf(sides,
                           [&](Form1& form) {
                               for (int scene = 1; scene <= 17; ++scene) form.playscene(scene);
                           }),
                ElementsAreArray(scenes));
}

TEST(CaptionsTest, WhatIsStartedAgainAndAgainIsToldOnce) {
    EXPECT_THAT(CaptionsOf("",
                           [](Form1& form) {
                               for (const double pause : {5, 250, 50}) {
                                   form.pidl();
                                   form.dy(pause);
                                   form.stoppidl();
                               }
                               form.pidl();
                               form.play("tamlo85");
                               form.play("tamlo85");
                               form.dy(2);
                               form.play("tamlo85");
                           }),
                ElementsAre("[scooter: idle]", "[scooter: idle]", "[coins]", "[coins]"));
}

TEST(CaptionsTest, NoSpokenTextLooksLikeACaption) {
    RehearsedGame game;
    std::vector<std::string> lines;
    game.Perform("", [&](Form1& form) {
        CaptionedSpeech speech(form.platform.speech,
                               [&](const std::string& line) { lines.push_back(line); });
        const auto engine = speech.CreateEngine();
        for (const char* text : {" start game ", "[", " [tram] ", " \t"}) {
            engine->Speak(text, SpeakFlags::queue);
        }
        engine->Speak("", SpeakFlags::purge);
    });
    EXPECT_THAT(lines, ElementsAre("start game", " [", " [tram]"));
}

}  // namespace
}  // namespace tamlo
