#include "app/sounds/learn_sounds.h"

#include <string>
#include <utility>
#include <vector>

#include "app/tool_list.h"
#include "driving/road_scenes.h"
#include "game/form1.h"
#include "services/sound.h"
#include "sound/effects.h"

namespace tamlo {
namespace {

constexpr double loop_seconds = 10;

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

}  // namespace

void LearnSounds(Form1& form) {
    OpenTool(form, " The sounds of Tamlo Delivery ");
    const std::vector<Lesson> lessons = Lessons();
    ListMenu list;
    for (const Lesson& lesson : lessons) list.items.push_back(lesson.spoken);
    RunToolList(
        form, std::move(list),
        " Learn the sounds of Tamlo Delivery. Up and Down arrow move from sound to sound, "
        "Enter plays the sound as it is heard in the game, Escape leaves. ",
        [&](int item) { PlayLesson(form, lessons[static_cast<std::size_t>(item) - 1].effect); });
}

}  // namespace tamlo
