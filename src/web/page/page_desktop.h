// What a page has of a desktop: one folder, a dialog, an editor.
#pragma once

#include <functional>

#include "services/desktop.h"
#include "services/speech.h"
#include "web/files/kept_files.h"

namespace tamlo {

inline constexpr const char* documents_path = "/Documents";
inline constexpr const char* player_path = "/Documents/tolvane";
inline constexpr const char* program_path = "/game";

class PageDesktop final : public Desktop {
  public:
    /// `voice` speaks the texts of dialogs, if it `speaks`: else the browser's own does.
    PageDesktop(Speech& voice, KeptFiles& files, std::function<bool()> speaks,
                std::function<void()> beep);

    std::string SpecialFolder(int number) override;
    void MessageBox(const std::string& text) override;
    void Beep() override { beep_(); }
    bool StartEditor(const std::string& path) override;
    bool StartLauncher(const std::string& path) override;
    void StartGame() override { restart_wanted_ = true; }

    bool RestartWanted() const { return restart_wanted_; }

  private:
    Speech& voice_;
    KeptFiles& files_;
    std::function<bool()> speaks_;
    std::function<void()> beep_;
    bool restart_wanted_ = false;
};

}  // namespace tamlo
