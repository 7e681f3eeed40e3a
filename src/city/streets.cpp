// City streets files: loading, writing and listing them, and the flows that create, edit and
// delete them.
#include "city/streets_file.h"

#include <algorithm>

#include "game/form1.h"
#include "services/desktop.h"
#include "services/files.h"
#include "speech/menus.h"
#include "text/text_encoding.h"

namespace tamlo {
namespace {

/// Copies a file's names into the tables; false if there are too few. Those that are there are
/// kept.
bool Load(Form1& form, const ReadResult& file) {
    const std::vector<std::string> names = ReadStreetNames(file.bytes);
    int at = 0;
    for (const std::string& name : names) {
        ++at;
        (at <= most_roads ? form.gs.ewnames(at) : form.gs.nsnames(at - most_roads)) = name;
    }
    return at == names_in_a_city;
}

std::string ChosenCity(const Form1& form) {
    return form.gs.csfnames(form.gs.nsf);
}

std::string ChosenFile(const Form1& form) {
    // Entry 1 is the default file; a city's file may have the name "original" nevertheless.
    if (form.gs.nsf == 1) return StreetsFileName("original");
    return std::string(streets_prefix) + ChosenCity(form) + std::string(streets_ending);
}

/// The entry, from 2 on, that a letter jumps to; the current one if no name begins with the letter.
int EntryWithLetter(const Form1& form, int current) {
    for (int entry = 2; entry <= form.gs.ncsf; ++entry) {
        const std::string& name = form.gs.csfnames(entry);
        const auto code = ToWindows1252(name);
        if (code && FromWindows1252(LowerCase1252(*code)) == form.gs.g2) return entry;
    }
    return current;
}

bool IsLetterKey(const std::string& g) {
    return g.size() == 2 && g >= "65" && g <= "90";
}

/// Asks for a city's name until it is one that a file can have; false if the player said no.
bool AskForName(Form1& form, std::string& name) {
    while (true) {
        form.getter(" Enter the name of your city ");
        name = form.gs.r;
        const int answer =
            form.askYesNo({.question = " Is " + name + " correct for the name of your city? ",
                           .lead = YesNoPrompt::Lead::clear_pause,
                           .initial_yes = true,
                           .letters = YesNoPrompt::Letters::after_echo,
                           .repeats_on_f1 = true});
        if (answer != 1) return false;
        const std::string_view why_not = WhyNotCityName(name);
        if (why_not.empty()) return true;
        form.say(" I 'm sorry, but that name can not be used for a file. " + std::string(why_not));
        form.dy(0.2);
    }
}

int AskBeforeLoss(Form1& form, const std::string& question) {
    return form.askYesNo(
        {.question = question, .lead = YesNoPrompt::Lead::pause, .clear_after = true});
}

}  // namespace

bool Form1::printstreets(const std::string& name) {
    sos();
    std::string text;
    for (const std::string& road : gs.ewnames) text += road + "\r\n";
    for (const std::string& street : gs.nsnames) text += street + "\r\n";
    return platform.files.Replace(path(StreetsFileName(name)), text);
}

void Form1::setstreets() {
    gs.sok = 1;
    gs.dirnames(1) = "North";
    gs.dirnames(2) = "East";
    gs.dirnames(3) = "South";
    gs.dirnames(4) = "West";
    const ReadResult file = platform.files.Read(path(StreetsFileName("original")));
    if (file.outcome == ReadResult::Outcome::missing) {
        if (!printstreets("original")) gs.nowrite = std::max(gs.nowrite, 1);
    } else if (!Load(*this, file)) {
        // Never overwritten: the player may have put much work into it.
        if (file.outcome == ReadResult::Outcome::failed) gs.noread = std::max(gs.noread, 1);
        gs.sok = 2;
        sos();
    }
    settoppings();
}

void Form1::setstreets2() {
    gs.sok = Load(*this, platform.files.Read(path(ChosenFile(*this)))) ? 1 : 2;
}

void Form1::glocs() {
    setstreets();
    gs.csfnames.fill("");
    const std::string pattern = std::string(streets_prefix) + "*" + std::string(streets_ending);
    gs.ncsf = 1;
    gs.csfnames(1) = "original";
    for (const std::string& file : platform.files.List(gs.datapath, pattern)) {
        const std::size_t around = streets_prefix.size() + streets_ending.size();
        // The default file is the first entry, wherever its name is in the order.
        if (file.size() <= around || gs.ncsf == most_streets_files) continue;
        gs.csfnames(++gs.ncsf) = file.substr(streets_prefix.size(), file.size() - around);
    }
}

void Form1::ssf(std::string_view prompt) {
    ListMenu menu{.prompt = prompt, .pause = true, .clear = true};
    for (int entry = 1; entry <= gs.ncsf; ++entry) menu.items.push_back(gs.csfnames(entry));
    menu.extra = [this](int item) {
        if (!IsLetterKey(gs.g)) return MenuKey{};
        saykey();
        return MenuKey::Move(EntryWithLetter(*this, item));
    };
    gs.nsf = runMenu(menu);
}

bool Form1::createcity() {
    std::string name;
    if (!AskForName(*this, name)) return false;
    if (!platform.files.FindFile(path(StreetsFileName(name))).empty()) {
        const int answer = AskBeforeLoss(
            *this, " There is already a file for " + name + ". Do you wish to replace it? ");
        if (answer != 1) return false;
    }
    if (!printstreets(name)) {
        say(" I 'm sorry, but the " + name + " file could not be created. ");
        dy(0.2);
        return false;
    }
    say(" Your " + name + " file has been created. " +
        " The actuall file name in Documents Tolvane folder is," + " tamlo streets " + name +
        " dot txt ");
    dy(0.2);
    return true;
}

void Form1::editcity() {
    glocs();
    ssf(" Select the city streets file that you wish to edit. ");
    dy(0.2);
    say2(" After saving your file and exiting Note Pad, press the space bar ");
    if (!platform.desktop.StartEditor(path(ChosenFile(*this)))) {
        stopspeech();
        say(" I 'm sorry, but the " + ChosenCity(*this) +
            " city streets file could not be opened. ");
        return;
    }
    dy(1);
    getkey();
}

void Form1::deletecity() {
    glocs();
    ssf(" Select the city streets file that you wish to delete. ");
    const std::string city = ChosenCity(*this);
    const int answer =
        AskBeforeLoss(*this, " Do you wish to delete the " + city + " city streets file? ");
    if (answer != 1) return;
    if (platform.files.Delete(path(ChosenFile(*this)))) {
        say(" The " + city + " city streets file has been deleted. ");
    } else {
        say(" I 'm sorry, but the " + city + " city streets file could not be deleted. ");
    }
    dy(0.3);
    clk();
}

}  // namespace tamlo
