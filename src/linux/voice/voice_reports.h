// What has become of each family of voices, for the explanations and for tamlo-doctor.
#pragma once

#include <mutex>
#include <string>
#include <vector>

namespace tamlo {

struct FamilyReport {
    enum class State {
        unknown,  ///< nobody has asked it for voices yet
        works,
        opening,  ///< it takes its time
        missing,  ///< no library, or no data that it can use
        crashed,
        hung,
        silent,  ///< it gave texts back without a sound
    };
    std::string name;  ///< of its library
    State state = State::unknown;
    bool left_out = false;  ///< it is not asked again in this run
};

/// May be used from any thread.
class VoiceReports {
  public:
    explicit VoiceReports(const std::vector<std::string>& names) {
        for (const std::string& name : names) reports_.push_back({name});
    }

    void Set(int family, FamilyReport::State state, bool left_out) {
        const std::lock_guard lock(mutex_);
        FamilyReport& report = reports_.at(static_cast<std::size_t>(family));
        report.left_out = report.left_out || left_out;
        // A failure is remembered, though the family may work again.
        if (report.state < FamilyReport::State::crashed) report.state = state;
    }
    std::vector<FamilyReport> All() const {
        const std::lock_guard lock(mutex_);
        return reports_;
    }

  private:
    mutable std::mutex mutex_;
    std::vector<FamilyReport> reports_;
};

}  // namespace tamlo
