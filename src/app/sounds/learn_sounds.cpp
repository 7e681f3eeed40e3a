#include "app/sounds/learn_sounds.h"

#include <string>
#include <vector>

#include "driving/road_scenes.h"
#include "game/form1.h"
#include "services/end_of_process.h"
#include "services/events.h"
#include "services/key_codes.h"
#include "services/sound.h"
#include "sound/effects.h"
#include "speech/menus.h"

namespace tamlo {
namespace {

constexpr double loop_seconds = 10;
constexpr int leave = -1;
constexpr int help = -2;

struct Lesson {
    Effect effect;
    std::string spoken;
};

/// All effects, in the order of the table; those with the same meaning are numbered.
std::vector<Lesson> Lessons() {
    std::vector<Lesson> lessons;
    std::string_view last_role;
    int count = 1;
    for (const Effect& effect : Effects()) {
        count = effect.role == last_role ? count + 1 : 1;
        last_role = effect.role;
        std::string spoken = " " + std::string(effect.role) + " ";
        if (count > 1) spoken += std::to_string(count) + " ";
        lessons.push_back({effect, spoken});
    }
    return lessons;
}

/// The scene of the road that a sound belongs to, 0 for none.
int SceneOf(std::string_view sound) {
    for (std::size_t i = 0; i < road_scenes.size(); ++i) {
        if (road_scenes[i].sound == sound) return static_cast<int>(i) + 1;
    }
    return 0;
}

/// Plays a loop for some seconds, or until a key is pressed.
void PlayLoop(Form1& form, std::string_view sound) {
    form.clk();
    form.playloop(sound);
    for (double played = 0; played < loop_seconds && form.gs.g.empty(); played += 0.1) form.dy(0.1);
    form.stoploop();
}

void PlayTitle(Form1& form) {
    form.clk();
    form.starttitle();
    form.endtitle();
}

void PlayLesson(Form1& form, const Effect& effect) {
    if (const int scene = SceneOf(effect.name)) {
        form.playscene(scene);
    } else if (effect.name == "tamlo1") {
        PlayTitle(form);
    } else if (effect.loop) {
        PlayLoop(form, effect.name);
    } else {
        form.play2(effect.name);
    }
}

void Welcome(Form1& form) {
    form.say2(
        " Learn the sounds of Tamlo Delivery. Up and Down arrow move from sound to sound, Enter "
        "plays the sound as it is heard in the game, Escape leaves. ");
}

MenuKey LessonKey(const Form1& form) {
    if (form.gs.g == keys::escape) return MenuKey::Leave(leave);
    if (form.gs.g == keys::f1) return MenuKey::Leave(help);
    return {};
}

}  // namespace

void LearnSounds(Form1& form) {
    form.platform.events.ShowWindow(" The sounds of Tamlo Delivery ");
    form.opensound();
    form.countvoices();
    form.getdatapath();
    form.readCFG();
    form.setupvoice();
    const std::vector<Lesson> lessons = Lessons();
    ListMenu menu{.extra = [&form](int) { return LessonKey(form); }};
    for (const Lesson& lesson : lessons) menu.items.push_back(lesson.spoken);
    Welcome(form);
    while (true) {
        const int item = form.runMenu(menu);
        menu.prompt = "";
        if (item == leave) break;
        if (item == help) {
            Welcome(form);
            continue;
        }
        PlayLesson(form, lessons[static_cast<std::size_t>(item) - 1].effect);
        menu.first = item;  // the list continues at this item
    }
    form.say(" Good bye. ");
    throw EndOfProcess{};
}

}  // namespace tamlo
