// The spoken manual: all of it, or the special keys only.
#include <array>

#include "game/contact.h"
#include "game/form1.h"

namespace tamlo {
namespace {

constexpr std::array<std::string_view, 3> the_game = {
    "Earn tips and promotions delivering delicious tamlos from the Tamlo Vorrel.",
    "The faster you get the tamlo to the customer the bigger the tip.  The speed limit is always "
    "35.  There are three roads that the police never patrol.  However there are also stationary "
    "things that will cost you time, such as railroad crossings, speed traps and hospital zones.  "
    "And there are random events that when they pop up will also cost you time.",
    "The layout of the city is, Center runs east to west.  East from fifty first avenue to first "
    "avenue, then west from first street to fifty first street.  North of Center the names are "
    "names of trees in alphabetical order from Apple to Willow.  South of Center they are names "
    "of automobile manufactures in alphabetical order from Buick to Volkswagon."};

// Each piece begins with its own blanks.
constexpr std::array<std::string_view, 6> city_files = {
    " In the games main menu you can choose create city streets file.",
    " You will be asked to type in a name and the file will be created with the original street "
    "names.",
    " Then from the main menu choose edit city streets file.",
    "   The file will open in Note Pad and you can change any or all of the street names.",
    " Please be careful to keep the same number of street names.",
    " The file will be in your documents\\tolvane folder and the file name will be "
    "tamlostreetsname.txt."};

constexpr std::array<std::string_view, 7> special_keys = {
    "Special key instructions.",
    "f1 repeat the tamlo delivery order.",
    "f2 speak game time.",
    "f3 speak the amount of time of the current delivery trip.",
    "f4 repeat the lay out of the city.",
    "f5 toggle the vehicle rev sound.",
    "f6 speak real world time."};

constexpr std::array<std::string_view, 3> closing = {
    "To uninstall Tamlo Delivery run the unintaml.bat file.",
    "If you have any questions or comments, please write or call.", ""};

template <typename Pieces>
std::string Joined(const Pieces& pieces) {
    std::string text(pieces.front());
    for (std::size_t i = 1; i < pieces.size(); ++i) text.append(1, ' ').append(pieces[i]);
    return text;
}

}  // namespace

void Form1::readins() {
    clk();
    std::string text = Joined(the_game);
    for (const std::string_view piece : city_files) text += piece;
    text += " " + Joined(special_keys) + " " + Joined(closing) + " " + Joined(contact_details);
    say2(text);
}

void Form1::speckeys() {
    clk();
    say2(Joined(special_keys));
}

}  // namespace tamlo
