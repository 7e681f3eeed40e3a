// Lines and Enter for a message box; the terminal given to an editor for a while.
#include "linux/terminal/terminal_front_end.h"

#include <cstdlib>

#include "linux/system/programs.h"
#include "linux/terminal/editor_choice.h"
#include "services/key_codes.h"

namespace tamlo {
namespace {

class CloseKey : public KeyListener {
  public:
    void Form_KeyDown(int code, int) override { pressed = pressed || keys::ClosesMessage(code); }
    bool pressed = false;
};

std::string_view Variable(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

}  // namespace

void ShowMessage(const std::string& text, Events& events, LinePrinter& printer) {
    printer.PrintLines(text);
    printer.Print("Press Enter.");
    CloseKey key;
    while (!key.pressed) events.Turn(key, until_event);
}

bool EditInTerminal(const std::string& path, TerminalMode& mode, LinePrinter& printer) {
    const auto commands = EditorCommands(Variable("VISUAL"), Variable("EDITOR"), path);
    printer.LeaveLine();
    mode.Leave();
    bool started = false;
    for (const auto& command : commands) {
        started = RunInTerminal(command);
        if (started) break;
    }
    mode.Enter();
    return started;
}

}  // namespace tamlo
