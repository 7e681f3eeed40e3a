// The table of commands, and typed characters as keys.
#include "linux/braille/brlapi_keys.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "services/key_codes.h"

namespace tamlo {
namespace {

using Act = BrailleKey::Act;

constexpr int function_keys = 12;

struct Command {
    brlapi_keyCode_t code;
    Act act;
    int key;
};

constexpr Command commands[] = {
    {BRLAPI_KEY_CMD_LNUP, Act::press, keys::up},
    {BRLAPI_KEY_CMD_LNDN, Act::press, keys::down},
    {BRLAPI_KEY_CMD_PRDIFLN, Act::press, keys::up},
    {BRLAPI_KEY_CMD_NXDIFLN, Act::press, keys::down},
    {BRLAPI_KEY_CMD_CHRLT, Act::press, keys::left},
    {BRLAPI_KEY_CMD_CHRRT, Act::press, keys::right},
    {BRLAPI_KEY_CMD_FWINLT, Act::back, 0},
    {BRLAPI_KEY_CMD_FWINRT, Act::forward, 0},
    {BRLAPI_KEY_CMD_FWINLTSKIP, Act::back, 0},
    {BRLAPI_KEY_CMD_FWINRTSKIP, Act::forward, 0},
    {BRLAPI_KEY_CMD_HOME, Act::newest, 0},
    {BRLAPI_KEY_CMD_RETURN, Act::newest, 0},
};

struct TypedKey {
    brlapi_keyCode_t symbol;
    int key;
};

constexpr TypedKey typed_keys[] = {
    {BRLAPI_KEY_SYM_BACKSPACE, keys::backspace},
    {BRLAPI_KEY_SYM_LINEFEED, keys::enter},
    {BRLAPI_KEY_SYM_ESCAPE, keys::escape},
    {BRLAPI_KEY_SYM_LEFT, keys::left},
    {BRLAPI_KEY_SYM_UP, keys::up},
    {BRLAPI_KEY_SYM_RIGHT, keys::right},
    {BRLAPI_KEY_SYM_DOWN, keys::down},
    {BRLAPI_KEY_SYM_HOME, keys::home},
    {BRLAPI_KEY_SYM_END, keys::end},
    {BRLAPI_KEY_SYM_PAGE_UP, keys::page_up},
    {BRLAPI_KEY_SYM_PAGE_DOWN, keys::page_down},
    {' ', keys::space},
};

/// Letters, digits and the named keys; nothing for other characters.
std::vector<int> KeysOfSymbol(brlapi_keyCode_t symbol) {
    if (symbol >= BRLAPI_KEY_SYM_UNICODE) symbol -= BRLAPI_KEY_SYM_UNICODE;
    if (symbol >= '0' && symbol <= '9') return {static_cast<int>(symbol)};
    if (symbol >= 'a' && symbol <= 'z') return {static_cast<int>(symbol - 'a' + 'A')};
    if (symbol >= 'A' && symbol <= 'Z') return {keys::shift, static_cast<int>(symbol)};
    const auto function = symbol - BRLAPI_KEY_SYM_FUNCTION;
    if (symbol >= BRLAPI_KEY_SYM_FUNCTION && function < function_keys) {
        return {keys::f1 + static_cast<int>(function)};
    }
    for (const TypedKey& typed : typed_keys) {
        if (typed.symbol == symbol) return {typed.key};
    }
    return {};
}

}  // namespace

BrailleKey MeaningOfKey(brlapi_keyCode_t code) {
    const brlapi_keyCode_t command = code & BRLAPI_KEY_CODE_MASK;
    if ((code & BRLAPI_KEY_TYPE_MASK) == BRLAPI_KEY_TYPE_SYM) {
        std::vector<int> pressed = KeysOfSymbol(command);
        return pressed.empty() ? BrailleKey{} : BrailleKey{Act::press, std::move(pressed)};
    }
    if ((command & BRLAPI_KEY_CMD_BLK_MASK) == BRLAPI_KEY_CMD_ROUTE) {
        return {Act::press, {keys::enter}};
    }
    for (const Command& known : commands) {
        if (known.code != command) continue;
        return known.act == Act::press ? BrailleKey{Act::press, {known.key}}
                                       : BrailleKey{known.act};
    }
    return {};
}

std::vector<brlapi_keyCode_t> BrlapiCommands() {
    std::vector<brlapi_keyCode_t> codes;
    std::transform(std::begin(commands), std::end(commands), std::back_inserter(codes),
                   [](const Command& known) { return BRLAPI_KEY_TYPE_CMD | known.code; });
    return codes;
}

}  // namespace tamlo
