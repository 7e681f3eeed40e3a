// Print into braille, as ASCII braille, which embossers and displays take.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace tamlo {

enum class Grade { uncontracted, contracted };  // of Unified English Braille

class BrailleTranslator {
  public:
    virtual ~BrailleTranslator() = default;
    /// One cell a character, of the 64 that six dots make. `print` is UTF-8; what is not well
    /// formed in it, and line ends, count as blanks.
    virtual std::string Translate(std::string_view print) = 0;
};

/// By liblouis. Null if the program was built without it, or its tables are not installed. Not for
/// use from several threads at once.
std::unique_ptr<BrailleTranslator> MakeTranslator(Grade grade);

}  // namespace tamlo
