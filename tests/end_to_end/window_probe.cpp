// A window without a game, for trying the window by itself: it prints what reaches it, a line each.
//
//   window_probe turns          event turns until the end; "key CODE MODIFIERS" for each key
//   window_probe blocked TIME   first TIME seconds without event turns, then as above
//   window_probe stuck          neither turns nor an end
//   window_probe line TEXT      a line to be seen, then as above
//   window_probe message TEXT   a message box, "closed" when it has been answered, then as above
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>

#include "linux/window/desktop_window.h"
#include "services/end_of_process.h"

namespace {

class Printer : public tamlo::KeyListener {
  public:
    void Form_KeyDown(int code, int modifiers) override {
        std::printf("key %d %d\n", code, modifiers);
    }
};

void Run(tamlo::DesktopWindow& window, const std::string& act, const std::string& argument) {
    std::puts("shown");
    if (act == "blocked") {
        using std::chrono::steady_clock;
        const auto end = steady_clock::now() + std::chrono::duration<double>(std::stod(argument));
        while (steady_clock::now() < end) {
            window.Pump();
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        std::puts("unblocked");
    }
    while (act == "stuck") std::this_thread::sleep_for(std::chrono::seconds(1));
    if (act == "line") window.ShowLine(argument);
    if (act == "message") {
        window.MessageBox(argument, [] { std::puts("said"); });
        std::puts("closed");
    }
    for (Printer printer;;) window.Turn(printer, tamlo::until_event);
}

}  // namespace

int main(int count, char** arguments) {
    const std::string act = count > 1 ? arguments[1] : "turns";
    const std::string argument = count > 2 ? arguments[2] : "0";
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    std::string why_not;
    tamlo::DesktopWindow::Prepare();
    const auto window = tamlo::DesktopWindow::Open(why_not);
    if (!window) {
        std::printf("no window: %s\n", why_not.c_str());
        return 1;
    }
    try {
        window->ShowWindow(" Tamlo Delivery ");
        Run(*window, act, argument);
    } catch (const tamlo::EndOfProcess& end) {
        std::puts("end");
        return end.exit_status;
    }
}
