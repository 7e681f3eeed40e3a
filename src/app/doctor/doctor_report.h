// The findings of the speech and sound check: as sentences to be spoken, and as a file for support.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tamlo {

struct Finding {
    enum class Weight {
        fine,
        hint,   ///< the game can be played, but not as well as it could be
        fault,  ///< something has to be mended first
    };
    std::string topic;  ///< a few words, such as "the voices"; one finding per topic
    Weight weight = Weight::fine;
    std::string text;  ///< whole sentences
};

class DoctorReport {
  public:
    /// Replaces an earlier finding on the same topic.
    void Add(const Finding& finding);
    /// Whether there is a finding on a topic.
    bool Knows(const std::string& topic) const;
    /// Adds a line to the file that is not spoken.
    void Note(const std::string& name, const std::string& value);

    const std::vector<Finding>& Findings() const { return findings_; }
    /// One sentence about all findings.
    std::string Verdict() const;
    /// The content of the file. `home`, unless empty, is replaced by "~" for privacy.
    std::string Text(const std::string& home) const;

  private:
    std::string Topics(Finding::Weight weight) const;

    std::vector<Finding> findings_;
    std::vector<std::pair<std::string, std::string>> notes_;
};

}  // namespace tamlo
