// What the monkeys have reached of the game, told from the traces of their play.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tamlo {

class Reached {
  public:
    Reached();

    /// Looks at whole lines of a trace, one after the other. A new run begins at its first line.
    void Look(std::string_view lines);
    void Count(const std::string& what, std::int64_t times = 1) { counts_[what] += times; }
    /// What has been reached too rarely: all of it at least once, some things `least` says.
    void Require(const std::string& what, std::int64_t least = 1) { least_[what] = least; }

    /// Prints a line for each thing with its count; false if any was reached too rarely.
    bool Report(std::ostream& out) const;

  private:
    void LookAt(std::string_view event);
    void Heard(std::string_view text);
    void Played(std::string_view sound, bool looping);

    std::map<std::string, std::int64_t, std::less<>> counts_;
    std::map<std::string, std::int64_t, std::less<>> least_;
    std::string rest_;    ///< the beginning of a line that has not come whole
    std::string corner_;  ///< of the last time that the place was told; empty off the road
    bool saved_ = false;
};

}  // namespace tamlo
