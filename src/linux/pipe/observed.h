// Services that tell an Activity what the game asks of them.
#pragma once

#include "linux/pipe/activity.h"
#include "services/desktop.h"
#include "services/forwarding_files.h"
#include "services/random.h"
#include "services/sound.h"
#include "services/speech.h"

namespace tamlo {

// Each stands before the real service, which must outlive it as the activity must.

class ObservedSpeech : public Speech {
  public:
    ObservedSpeech(Speech& real, Activity& activity) : real_(real), activity_(activity) {}
    std::unique_ptr<SpeechEngine> CreateEngine() override;

  private:
    Speech& real_;
    Activity& activity_;
};

class ObservedSound : public SoundSystem {
  public:
    ObservedSound(SoundSystem& real, Activity& activity) : real_(real), activity_(activity) {}
    std::unique_ptr<SoundDevice> CreateDevice() override;

  private:
    SoundSystem& real_;
    Activity& activity_;
};

class ObservedFiles : public ForwardingFiles {
  public:
    ObservedFiles(Files& real, Activity& activity) : ForwardingFiles(real), activity_(activity) {}

  private:
    void Asked() override { activity_.Asked(); }

    Activity& activity_;
};

class ObservedDesktop : public Desktop {
  public:
    ObservedDesktop(Desktop& real, Activity& activity) : real_(real), activity_(activity) {}
    std::string SpecialFolder(int number) override;
    void MessageBox(const std::string& text) override;
    void Beep() override;
    bool StartEditor(const std::string& path) override;
    bool StartLauncher(const std::string& path) override;
    void StartGame() override;

  private:
    Desktop& Asked();

    Desktop& real_;
    Activity& activity_;
};

class ObservedRandom : public Random {
  public:
    ObservedRandom(Random& real, Activity& activity) : real_(real), activity_(activity) {}
    void Seed(double number) override;
    double Next() override;

  private:
    Random& real_;
    Activity& activity_;
};

}  // namespace tamlo
