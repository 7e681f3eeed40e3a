// Services that tell an Activity what the game asks of them.
#pragma once

#include "linux/pipe/activity.h"
#include "services/desktop.h"
#include "services/files.h"
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

class ObservedFiles : public Files {
  public:
    ObservedFiles(Files& real, Activity& activity) : real_(real), activity_(activity) {}
    std::string FindFile(const std::string& path) override;
    std::string FindFolder(const std::string& path) override;
    std::vector<std::string> List(const std::string& folder, std::string_view pattern) override;
    std::optional<std::uint64_t> Length(const std::string& path) override;
    ReadResult Read(const std::string& path) override;
    bool Replace(const std::string& path, std::string_view bytes) override;
    bool Append(const std::string& path, std::string_view bytes) override;
    bool Delete(const std::string& path) override;
    bool Rename(const std::string& from, const std::string& to) override;
    bool MakeFolder(const std::string& path) override;
    std::string CurrentDirectory() override;

  private:
    Files& Asked();

    Files& real_;
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
