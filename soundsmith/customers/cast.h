// The forty people who open their doors: who they are, whose voice they have, what they say.
#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace tamlo::soundsmith {

struct Customer {
    std::string_view effect;  // the file's name without ".wav"
    std::string_view engine;  // "espeak" or "flite"
    std::string_view voice;   // as that engine names it
    double pitch;             // espeak: 0 to 99, 50 is the voice's own; flite: mean hertz
    double pace;              // espeak: words a minute; flite: words last this many times as long
    double size;              // speed of play: above 1 a smaller person, higher and quicker
    std::string_view who;
    std::string_view greeting;  // 0.5 to 2.4 seconds of speech
};

// "en-gb+variant" is taken by the engine and silently gives its plain man: British voices go by
// "en-gb-x-rp" here.
// clang-format off
inline constexpr std::array<Customer, 40> kCast{{
    // Women.
    {"tamlo41", "flite",  "slt",                   205, 1.00, 1.00, "a friendly neighbour",     "Hi there! Come on in."},
    {"tamlo42", "flite",  "slt",                   215, 0.98, 1.20, "a student",                "Yay, food!"},
    {"tamlo43", "flite",  "slt",                   205, 1.02, 0.90, "a teacher",                "Good evening. Right on time."},
    {"tamlo44", "flite",  "slt",                   212, 1.00, 1.08, "a young mother",           "Sh! The baby is asleep."},
    {"tamlo45", "espeak", "en-us+f1",               62,  170, 1.00, "an office worker",         "Oh! That was quick."},
    {"tamlo46", "espeak", "en-gb-x-rp+f2",          48,  160, 1.00, "a lady of the manor",      "How very kind of you."},
    {"tamlo47", "espeak", "en-us+f3",               70,  180, 1.00, "a party guest",            "Hey everybody, dinner is here!"},
    {"tamlo48", "espeak", "en-gb-scotland+f4",      68,  165, 1.00, "a nurse after work",       "Perfect. I am worn out."},
    {"tamlo49", "espeak", "en-029+f5",              45,  165, 1.00, "a shopkeeper",             "Who is it? Ah, it is you!"},
    {"tamlo50", "espeak", "en-us+Annie",            50,  165, 1.00, "a gardener",               "Mind the roses, please."},
    {"tamlo51", "espeak", "en-gb-x-rp+Andrea",      50,  170, 1.00, "a lawyer",                 "Yes? What is it?"},
    {"tamlo52", "espeak", "en-us+Alicia",           40,  175, 1.00, "a musician",               "Oh, lovely. Thank you."},
    {"tamlo53", "espeak", "en-gb-x-rp+belinda",     50,  165, 1.00, "a landlady",               "Wipe your feet first!"},
    {"tamlo54", "espeak", "en-us+linda",            70,  180, 1.00, "a runner, out of breath",  "Hello, hello! Just a second."},
    {"tamlo55", "espeak", "en-us+steph",            58,  165, 1.00, "a doctor",                 "Ah, there you are."},
    {"tamlo56", "espeak", "en-us+anika",            45,  165, 1.00, "a painter",                "Mm, that smells good."},
    {"tamlo57", "espeak", "en-gb-x-gbclan+aunty",   70,  155, 0.92, "an aunt",                  "Hello dear, come in."},
    {"tamlo58", "espeak", "en-gb-x-rp+grandma",     48,  140, 1.00, "a grandmother",            "Oh, bless you, my love."},
    {"tamlo59", "espeak", "en-us+steph3",           75,  190, 1.12, "a girl of fifteen",        "Mum! It is for you!"},
    {"tamlo60", "espeak", "en-us+f2",               70,  185, 1.20, "a girl of eight",          "Is it for me?"},
    // Men.
    {"tamlo61", "flite",  "rms",                   100, 1.00, 1.00, "a friendly neighbour",     "Good to see you."},
    {"tamlo62", "flite",  "awb",                   120, 1.00, 0.95, "a Scottish engineer",      "Well now, here we are."},
    {"tamlo63", "flite",  "kal16",                 105, 1.00, 1.00, "a night watchman",         "Who goes there?"},
    {"tamlo64", "flite",  "kal16",                  98, 1.00, 0.92, "a bus driver",             "About time, my friend."},
    {"tamlo65", "flite",  "rms",                    80, 1.00, 0.88, "a bass singer",            "Good evening to you."},
    {"tamlo66", "flite",  "awb",                   112, 1.12, 1.17, "a clerk",                  "Have you got the right change?"},
    {"tamlo67", "espeak", "en-us+m1",               47,  165, 1.00, "a father of five",         "Kids! Dinner!"},
    {"tamlo68", "espeak", "en-gb-x-rp+m3",          62,  170, 1.00, "a butler",                 "You are expected, sir."},
    {"tamlo69", "espeak", "en-us+m4",               32,  165, 0.88, "a wrestler",               "Great. I could eat a horse."},
    {"tamlo70", "espeak", "en-gb-scotland+m7",      70,  170, 1.00, "a fisherman",              "Come away in, lad."},
    {"tamlo71", "espeak", "en-us+m8",               40,  150, 1.00, "a professor",              "Oh yes. Of course."    },
    {"tamlo72", "espeak", "en-us+Andy",             35,  165, 1.00, "a mechanic",               "Hey, buddy. How much?"},
    {"tamlo73", "espeak", "en-gb-x-rp+Alex",        70,  170, 1.00, "an actor",                 "At last! We are starving."},
    {"tamlo74", "espeak", "en-us+Gene2",            54,  165, 1.00, "a card player",            "Deal me out, boys."},
    {"tamlo75", "espeak", "en-029+Marco",           60,  180, 1.00, "a barber",                 "Welcome, welcome!"},
    {"tamlo76", "espeak", "en-gb-x-gbcwmd+max",     42,  165, 1.00, "a bricklayer",             "All right, mate?"},
    {"tamlo77", "espeak", "en-us+croak",            62,  145, 0.89, "an old man",               "Eh? Who is it?"},
    {"tamlo78", "espeak", "en-us+Nguyen",           20,  165, 1.00, "a cook on his day off",    "Let me see. Very nice."},
    {"tamlo79", "espeak", "en-us+pablo",            70,  175, 1.06, "a boy with a game on",     "Cool! Over here."},
    {"tamlo80", "flite",  "awb",                   105, 1.00, 0.94, "somebody on the intercom", "Yeah?"},
}};
// clang-format on

// The person behind a file; nullptr when it is nobody's.
constexpr const Customer* FindCustomer(std::string_view effect) {
    const auto* found = std::find_if(kCast.begin(), kCast.end(),
                                     [&](const Customer& one) { return one.effect == effect; });
    return found == kCast.end() ? nullptr : found;
}

}  // namespace tamlo::soundsmith
