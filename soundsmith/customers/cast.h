// The forty people who open their doors: whose recorded voice they have, how it was changed, and
// what they say.
#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace tamlo::soundsmith {

/// Somebody whose recorded voice speaks for customers.
struct Speaker {
    std::string_view name;     ///< as its engine names the voice
    std::string_view engine;   ///< "flite", "festival" or "espeak"
    std::string_view charset;  ///< of the text that the voice reads
    int lowest_pitch;          ///< hertz; the speaker's own pitch is searched between these two
    int highest_pitch;
    std::string_view who;
};

/// clang-format off
inline constexpr std::array<Speaker, 10> speakers{{
    {"slt", "flite", "UTF-8", 100, 420, "American woman"},
    {"rms", "flite", "UTF-8", 55, 300, "American man"},
    {"awb", "flite", "UTF-8", 55, 300, "Scottish man"},
    {"kal16", "flite", "UTF-8", 55, 300, "American man"},
    {"ked_diphone", "festival", "UTF-8", 55, 300, "American man"},
    {"czech_dita", "festival", "ISO-8859-2", 100, 420, "Czech woman"},
    {"czech_machac", "festival", "ISO-8859-2", 55, 300, "Czech man"},
    {"suo_fi_lj_diphone", "festival", "ISO-8859-1", 100, 420, "Finnish woman"},
    {"hy_fi_mv_diphone", "festival", "ISO-8859-1", 55, 300, "Finnish man"},
    {"en-us+m8", "espeak", "UTF-8", 55, 300, "the voice of the menus"},
}};
/// clang-format on

struct Customer {
    std::string_view effect;   ///< the file's name without ".wav"
    std::string_view speaker;  ///< a row of the table above
    double formants;           ///< times as high as the speaker's: above 1 a smaller person
    int pitch;                 ///< median in hertz; 0: the speaker's own
    double melody;             ///< times the speaker's rise and fall around the median
    double pace;               ///< words last this many times as long
    double breath;             ///< 0 to 1: noise of breath in the voice
    double tremor;             ///< 0 to 1: trembling of pitch and strength
    std::string_view who;
    std::string_view greeting;  ///< 0.5 to 2.4 seconds of speech
    /// The greeting as the voice of another language has to read it; empty: as it is.
    std::string_view spelling = {};

    /// Whether the speaker's voice is used as it was recorded.
    constexpr bool Unchanged() const {
        return formants == 1 && pitch == 0 && melody == 1 && pace == 1;
    }
};

/// The pitches of women lie above those of men, so that a listener can tell them at one word.
/// clang-format off
inline constexpr std::array<Customer, 40> cast{{
    ///           speaker             form  pitch mel   pace  breath trem
    /// Women.
    {"tamlo41", "slt", 1.00, 206, 1.30, 1.00, 0.0, 0.0, "a friendly neighbour",
     "Hello there, please come in."},
    {"tamlo42", "slt", 1.04, 248, 1.40, 1.00, 0.0, 0.0, "a student",
     "I have been waiting for you."},
    {"tamlo43", "slt", 0.93, 174, 1.10, 1.08, 0.0, 0.0, "a teacher",
     "Good evening, right on time."},
    {"tamlo44", "slt", 0.87, 206, 1.20, 1.00, 0.2, 0.0, "a young mother",
     "Quiet please, the baby is asleep."},
    {"tamlo45", "rms", 1.19, 208, 1.20, 0.95, 0.0, 0.0, "an office worker",
     "Oh, that was very quick."},
    {"tamlo46", "awb", 1.12, 178, 1.40, 1.05, 0.0, 0.0, "a lady of the manor",
     "How nice of you to come."},
    {"tamlo47", "rms", 1.26, 236, 1.40, 0.95, 0.0, 0.0, "a party guest",
     "Hey everybody, dinner is here!"},
    {"tamlo48", "awb", 1.18, 212, 1.10, 1.05, 0.0, 0.0, "a Scottish nurse after work",
     "I am so tired, thank you."},
    {"tamlo49", "suo_fi_lj_diphone", 0.93, 174, 1.00, 1.00, 0.0, 0.0, "a Finnish shopkeeper",
     "Hei! Yes yes, I am coming.", "Hei! jes jes ai äm kaming."},
    {"tamlo50", "awb", 1.24, 252, 1.20, 0.95, 0.0, 0.0, "a gardener",
     "Just a second, I am coming."},
    {"tamlo51", "ked_diphone", 1.15, 178, 1.00, 1.00, 0.0, 0.0, "a lawyer", "Yes, what is it?"},
    {"tamlo52", "czech_dita", 1.00, 222, 1.30, 1.00, 0.0, 0.0, "a Czech musician",
     "Dobrý den! Thank you very much.", "Dobrý den! tenk jú verí mač."},
    {"tamlo53", "kal16", 1.18, 212, 1.20, 1.10, 0.0, 0.0, "a landlady", "You took your time."},
    {"tamlo54", "suo_fi_lj_diphone", 1.03, 240, 1.20, 0.92, 0.6, 0.0,
     "a Finnish runner, out of breath", "Moi moi! One moment please.",
     "Moi moi! uan moument pliis."},
    {"tamlo55", "czech_dita", 0.89, 184, 1.20, 1.05, 0.0, 0.0, "a Czech doctor",
     "Very good. Thank you.", "verí gud, tenk jú."},
    {"tamlo56", "ked_diphone", 1.22, 232, 1.20, 1.05, 0.0, 0.0, "a painter",
     "It smells very good."},
    {"tamlo57", "rms", 1.07, 224, 1.40, 1.05, 0.0, 0.0, "an aunt", "Good to see you, my dear."},
    {"tamlo58", "rms", 1.14, 180, 1.20, 1.20, 0.1, 0.7, "a grandmother", "Oh, bless you my dear."},
    {"tamlo59", "slt", 1.06, 292, 1.30, 0.95, 0.0, 0.0, "a girl of fifteen",
     "Good, I am so hungry."},
    {"tamlo60", "rms", 1.36, 326, 1.30, 1.00, 0.0, 0.0, "a girl of eight",
     "Hello, is that for me?"},
    /// Men.
    {"tamlo61", "rms", 1.00, 102, 1.00, 1.00, 0.0, 0.0, "a friendly neighbour",
     "Hello, nice to see you."},
    {"tamlo62", "awb", 1.00, 126, 1.10, 1.00, 0.0, 0.0, "a Scottish engineer",
     "So here we are again."},
    {"tamlo63", "kal16", 1.00, 96, 1.20, 1.00, 0.0, 0.0, "a night watchman", "Stop, who are you?"},
    {"tamlo64", "ked_diphone", 1.07, 124, 1.10, 1.00, 0.0, 0.0, "a bus driver",
     "It is about time, my friend."},
    {"tamlo65", "rms", 0.89, 78, 1.00, 1.10, 0.0, 0.0, "a bass singer", "Come in, my good friend."},
    {"tamlo66", "awb", 1.08, 140, 1.00, 0.95, 0.0, 0.0, "a clerk",
     "Have you got the right change?"},
    {"tamlo67", "slt", 0.82, 104, 1.30, 0.95, 0.0, 0.0, "a father of five",
     "Come on kids, dinner is here."},
    {"tamlo68", "slt", 0.88, 136, 0.90, 1.05, 0.0, 0.0, "a butler", "You are expected, sir."},
    {"tamlo69", "ked_diphone", 0.93, 82, 1.00, 1.05, 0.0, 0.0, "a wrestler",
     "What have you got there?"},
    {"tamlo70", "awb", 0.91, 90, 1.10, 1.10, 0.1, 0.0, "a Scottish fisherman",
     "It is a cold night."},
    {"tamlo71", "en-us+m8", 1.00, 0, 1.00, 1.00, 0.0, 0.0, "a professor who speaks by a computer",
     "Oh yes. Of course."},
    {"tamlo72", "rms", 1.07, 126, 1.50, 0.92, 0.0, 0.0, "a mechanic", "Hey buddy, how much is it?"},
    {"tamlo73", "rms", 0.95, 140, 1.80, 1.05, 0.0, 0.0, "an actor", "At last, I am so hungry."},
    {"tamlo74", "kal16", 1.12, 142, 1.20, 0.95, 0.0, 0.0, "a card player",
     "Put it on the table please."},
    {"tamlo75", "hy_fi_mv_diphone", 1.00, 106, 1.00, 1.00, 0.0, 0.0, "a Finnish barber",
     "No niin. Thank you very much.", "No niin. tänk juu veri mats."},
    {"tamlo76", "kal16", 0.95, 122, 1.00, 1.00, 0.0, 0.0, "a bricklayer",
     "Is everything all right?"},
    {"tamlo77", "czech_machac", 1.00, 76, 1.30, 1.10, 0.2, 1.0, "an old Czech man",
     "Tak. One moment please.", "Tak. uan moument plíz."},
    {"tamlo78", "czech_machac", 1.12, 116, 1.30, 0.95, 0.0, 0.0, "a Czech cook on his day off",
     "No konečně! Very good.", "No konečně! verí gud."},
    {"tamlo79", "awb", 1.27, 143, 1.30, 0.90, 0.0, 0.0, "a boy with a game on",
     "Wait a minute please."},
    {"tamlo80", "awb", 0.95, 108, 1.00, 1.00, 0.0, 0.0, "somebody on the intercom", "Yeah?"},
}};
/// clang-format on

/// The person in a file; nullptr when it is nobody's.
constexpr const Customer* FindCustomer(std::string_view effect) {
    const auto* found = std::find_if(cast.begin(), cast.end(),
                                     [&](const Customer& one) { return one.effect == effect; });
    return found == cast.end() ? nullptr : found;
}

/// The speaker of that name; nullptr when there is none.
constexpr const Speaker* FindSpeaker(std::string_view name) {
    const auto* found = std::find_if(speakers.begin(), speakers.end(),
                                     [&](const Speaker& one) { return one.name == name; });
    return found == speakers.end() ? nullptr : found;
}

}  // namespace tamlo::soundsmith
