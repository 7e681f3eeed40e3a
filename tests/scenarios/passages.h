// Passages of scores that recur: a page names them in one line.
#pragma once

#include <fstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tamlo {

/// A file of passages: "== NAME" begins each. Where "= NAME" stands, in a page or in a later
/// passage, it stands for the lines of that passage.
class Passages {
  public:
    explicit Passages(const std::string& file) {
        std::ifstream lines(file);
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with("== ")) {
                passages_.emplace_back("= " + line.substr(3) + "\n", "");
            } else if (!line.starts_with('#')) {
                passages_.back().second += line + "\n";
            }
        }
        for (auto& [name, text] : passages_) text = Unfolded(text);
    }

    /// The whole text, with the lines of the passages in the places of their names.
    std::string Unfolded(std::string text) const {
        for (const auto& [name, lines] : passages_) Replace(text, name, lines);
        return text;
    }

    /// The text with names for passages, the longest first.
    std::string Folded(std::string text) const {
        for (std::size_t i = passages_.size(); i-- > 0;) {
            Replace(text, passages_[i].second, passages_[i].first);
        }
        return text;
    }

  private:
    /// Replaces whole lines.
    static void Replace(std::string& text, std::string_view what, std::string_view by) {
        for (std::size_t at = 0; (at = text.find(what, at)) != text.npos;) {
            const bool line = at == 0 || text[at - 1] == '\n';
            if (line) text.replace(at, what.size(), by);
            at += line ? by.size() : 1;
        }
    }

    std::vector<std::pair<std::string, std::string>> passages_;  ///< short ones first
};

}  // namespace tamlo
