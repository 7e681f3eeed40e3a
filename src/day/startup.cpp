// From the opening of the window to the main menu, and the end of the program.
#include "game/contact.h"
#include "game/form1.h"
#include "services/desktop.h"
#include "services/end_of_process.h"
#include "services/files.h"
#include "services/speech.h"

namespace tamlo {
namespace {

const std::string launcher = "zentrope.exe";

std::string Failure(std::string_view what) {
    return std::string(what) + "\rPlease contact " + std::string(contact_name);
}

void CheckSounds(Form1& form) {
    form.checkwave();
    if (form.gs.wcv != 1) return;
    form.gs.wb1->Stop();
    form.gs.wb1.reset();
    form.platform.desktop.MessageBox(
        Failure("Sorry but one or more of the wave files seem to be corrupt"));
    form.runEnd();
}

}  // namespace

void Form1::startup(const std::function<void()>& claim) {
    platform.events.ShowWindow(" Tamlo Delivery ");
    opensound();
    starttitle();  // plays during the steps below
    countvoices();
    getdatapath();
    if (claim) claim();
    CheckSounds(*this);
    readCFG();
    setupvoice();
    setstreets();
    say(" ");  // wakes the speech engine
    endtitle();
    dy(0.3);
    say(" Tamlo Delivery. version 3. ");
    gesaga();
    telltroubles();
    ldwv();
    setmaxa();
    dy(0.3);
    clk();  // a key that cut the title short is not meant for the menu
}

void Form1::countvoices() {
    gs.Voice = platform.speech.CreateEngine();
    gs.nov = gs.Voice->GetVoicesCount();
    if (gs.nov > 0) return;
    platform.desktop.MessageBox(Failure("Sorry but I couldn't find any voices to use"));
    runEnd();
}

void Form1::runEnd() {
    const std::string program =
        platform.files.FindFile(platform.files.CurrentDirectory() + "/" + launcher);
    if (!program.empty()) {
        gs.Voice.reset();
        if (platform.desktop.StartLauncher(program)) throw EndOfProcess{};
        setupvoice();
    }
    platform.desktop.Beep();
    dy(0.1);
    platform.desktop.Beep();
    dy(0.1);
    say("Sorry, but I could not find the Tolvane game menu program.");
    dy(0.2);
    say(" exiting program ");
    dy(0.2);
    gs.Voice.reset();
    throw EndOfProcess{};
}

}  // namespace tamlo
