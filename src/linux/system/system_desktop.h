// The player's desktop: folders and programs from the system, what is shown and heard from
// whichever front end runs.
#pragma once

#include <functional>

#include "services/desktop.h"

namespace tamlo {

/// What differs between a window and a terminal.
struct FrontEnd {
    std::function<void(const std::string& text)> message_box;  ///< may throw EndOfProcess
    std::function<void()> beep;
    std::function<bool(const std::string& path)> edit;  ///< false if there is no editor
};

/// Opens a text file with the desktop's own choice of editor, without waiting; false if the
/// desktop has no way to open files.
bool EditOnDesktop(const std::string& path);

class SystemDesktop : public Desktop {
  public:
    explicit SystemDesktop(FrontEnd front_end);
    std::string SpecialFolder(int number) override;
    void MessageBox(const std::string& text) override;
    void Beep() override;
    bool StartEditor(const std::string& path) override;
    bool StartLauncher(const std::string& path) override;
    void StartGame() override;

    /// Whether the game asked for a restart.
    bool RestartWanted() const { return restart_wanted_; }

  private:
    FrontEnd front_end_;
    bool restart_wanted_ = false;
};

}  // namespace tamlo
