// Folders and programs of the player's system.
#include "linux/system/system_desktop.h"

#include <utility>

#include "linux/system/programs.h"
#include "linux/system/user_dirs.h"

namespace tamlo {
namespace {

/// The same file, named so that no program can take it for an option or look along PATH for it.
std::string AsPath(const std::string& path) {
    return path.starts_with('/') ? path : "./" + path;
}

}  // namespace

bool EditOnDesktop(const std::string& path) {
    return StartProgram({"xdg-open", AsPath(path)}, StartAs::quiet);
}

SystemDesktop::SystemDesktop(FrontEnd front_end) : front_end_(std::move(front_end)) {}

std::string SystemDesktop::SpecialFolder(int number) {
    return number == documents_folder ? DocumentsFolder() : "";
}

void SystemDesktop::MessageBox(const std::string& text) {
    front_end_.message_box(text);
}

void SystemDesktop::Beep() {
    front_end_.beep();
}

bool SystemDesktop::StartEditor(const std::string& path) {
    return front_end_.edit(AsPath(path));
}

bool SystemDesktop::StartLauncher(const std::string& path) {
    return StartProgram({AsPath(path)}, StartAs::own_session);
}

void SystemDesktop::StartGame() {
    restart_wanted_ = true;
}

}  // namespace tamlo
