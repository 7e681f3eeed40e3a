#include "audio/voice/sentences.h"

#include <algorithm>
#include <array>

#include "audio/voice/spelled_out.h"
#include "audio/voice/wording.h"
#include "text/utf8.h"

namespace tamlo {
namespace {

constexpr std::size_t most_words = 24;
constexpr std::size_t most_letters = 200;  // of a sentence, blanks and marks included
/// From this many words on, a comma ends the sentence, too.
constexpr std::size_t many_words = 12;
constexpr std::size_t longest_word = 30;
constexpr double pause_of_sentence = 0.3;
constexpr double pause_of_clause = 0.13;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::string WholeInPlainLetters(std::string_view text) {
    std::string plain;
    for (Utf8Character next = DecodeCharacter(text); next.length > 0;
         next = DecodeCharacter(text)) {
        plain += InPlainLetters(next.code);
        text.remove_prefix(next.length);
    }
    return plain;
}

bool IsAbbreviation(std::string_view word) {
    constexpr std::array<std::string_view, 7> known{"St", "Dr", "Mr", "Mrs", "Ms", "Jr", "Sr"};
    return word.size() == 1 || std::find(known.begin(), known.end(), word) != known.end();
}

/// Reads a text in plain letters, a word or mark at a time, into sentences.
class Cutter {
  public:
    explicit Cutter(std::string plain) : text_(std::move(plain)) {}

    std::vector<Sentence> Cut() {
        while (at_ < text_.size()) {
            const char c = text_[at_];
            if (IsDigit(c)) {
                TakeNumber();
            } else if (IsLetter(c)) {
                TakeWord();
            } else {
                TakeMark(c);
            }
        }
        End('.', 0);
        if (!sentences_.empty()) sentences_.back().pause_behind = 0;
        return std::move(sentences_);
    }

  private:
    char At(std::size_t i) const { return i < text_.size() ? text_[i] : '\0'; }

    void TakeNumber() {
        if (at_ > 0 && text_[at_ - 1] == '-' && (at_ == 1 || text_[at_ - 2] == ' ')) Add("minus");
        std::string digits = TakeDigits();
        while (digits.size() <= 3 * 3 && At(at_) == ',' && GroupOfThree(at_ + 1)) {
            digits += text_.substr(at_ + 1, 3);
            at_ += 4;
        }
        if (IsOrdinalEnding()) {
            at_ += 2;
            Add(OrdinalInWords(digits));
            return;
        }
        Add(NumberInWords(digits));
        if (At(at_) != '.' || !IsDigit(At(at_ + 1))) return;
        ++at_;
        Add("point");
        for (char digit : TakeDigits()) Add(NumberInWords({&digit, 1}));
    }

    std::string TakeDigits() {
        const std::size_t from = at_;
        while (IsDigit(At(at_))) ++at_;
        return text_.substr(from, at_ - from);
    }

    bool GroupOfThree(std::size_t i) const {
        return IsDigit(At(i)) && IsDigit(At(i + 1)) && IsDigit(At(i + 2)) && !IsDigit(At(i + 3));
    }

    bool IsOrdinalEnding() const {
        if (IsLetter(At(at_ + 2)) || !IsLetter(At(at_))) return false;
        const std::string ending = text_.substr(at_, 2);
        return ending == "st" || ending == "nd" || ending == "rd" || ending == "th";
    }

    void TakeWord() {
        const std::size_t from = at_;
        while (IsLetter(At(at_)) || (At(at_) == '\'' && IsLetter(At(at_ + 1)))) ++at_;
        const std::string word = text_.substr(from, at_ - from);
        for (std::size_t i = 0; i < word.size(); i += longest_word) {
            Add(word.substr(i, longest_word));
        }
        if (At(at_) == '.' && IsAbbreviation(word) && At(at_ + 1) == ' ') {
            words_ += '.';
            ++at_;
        }
    }

    void TakeMark(char mark) {
        ++at_;
        if (mark == ',' && count_ > 0) {
            if (words_.back() != ',') words_ += ',';
            if (count_ >= many_words) End(',', pause_of_clause);
        }
        if (mark == '?') End('?', pause_of_sentence);
        if (mark == '.' || mark == '\n') End('.', pause_of_sentence);
    }

    void Add(std::string_view words) {
        while (!words.empty()) {
            const std::size_t end = std::min(words.find(' '), words.size());
            if (count_ >= most_words || words_.size() + end > most_letters) End(',', 0);
            if (!words_.empty()) words_ += ' ';
            words_ += words.substr(0, end);
            ++count_;
            words.remove_prefix(std::min(end + 1, words.size()));
        }
    }

    void End(char mark, double pause) {
        if (count_ > 0) {
            if (words_.back() == ',') words_.pop_back();
            words_ += mark;
            sentences_.push_back({words_, pause});
        }
        words_.clear();
        count_ = 0;
    }

    std::string text_;
    std::size_t at_ = 0;
    std::string words_;      ///< of the sentence being read
    std::size_t count_ = 0;  ///< of its words
    std::vector<Sentence> sentences_;
};

}  // namespace

std::vector<Sentence> SentencesOf(std::string_view text) {
    if (char32_t character = SingleCharacter(text); character != 0) {
        std::string name = CharacterName(character);
        if (name.empty()) return {};
        return {{name + ".", 0}};
    }
    return Cutter(WholeInPlainLetters(text)).Cut();
}

}  // namespace tamlo
