// The table of commands, and typed characters as keys.
#include "linux/braille/brlapi_keys.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tamlo {
namespace {

using Act = BrailleKey::Act;

constexpr int shift_key = 16;
constexpr int enter_key = 13;
constexpr int first_function_key = 112;
constexpr int function_keys = 12;

struct Command {
    brlapi_keyCode_t code;
    Act act;
    int key;
};

constexpr Command commands[] = {
    {BRLAPI_KEY_CMD_LNUP, Act::press, 38},     {BRLAPI_KEY_CMD_LNDN, Act::press, 40},
    {BRLAPI_KEY_CMD_PRDIFLN, Act::press, 38},  {BRLAPI_KEY_CMD_NXDIFLN, Act::press, 40},
    {BRLAPI_KEY_CMD_CHRLT, Act::press, 37},    {BRLAPI_KEY_CMD_CHRRT, Act::press, 39},
    {BRLAPI_KEY_CMD_FWINLT, Act::back, 0},     {BRLAPI_KEY_CMD_FWINRT, Act::forward, 0},
    {BRLAPI_KEY_CMD_FWINLTSKIP, Act::back, 0}, {BRLAPI_KEY_CMD_FWINRTSKIP, Act::forward, 0},
    {BRLAPI_KEY_CMD_HOME, Act::newest, 0},     {BRLAPI_KEY_CMD_RETURN, Act::newest, 0},
};

struct TypedKey {
    brlapi_keyCode_t symbol;
    int key;
};

constexpr TypedKey typed_keys[] = {
    {BRLAPI_KEY_SYM_BACKSPACE, 8},  {BRLAPI_KEY_SYM_LINEFEED, enter_key},
    {BRLAPI_KEY_SYM_ESCAPE, 27},    {BRLAPI_KEY_SYM_LEFT, 37},
    {BRLAPI_KEY_SYM_UP, 38},        {BRLAPI_KEY_SYM_RIGHT, 39},
    {BRLAPI_KEY_SYM_DOWN, 40},      {BRLAPI_KEY_SYM_HOME, 36},
    {BRLAPI_KEY_SYM_END, 35},       {BRLAPI_KEY_SYM_PAGE_UP, 33},
    {BRLAPI_KEY_SYM_PAGE_DOWN, 34}, {' ', 32},
};

/// Letters, digits and the named keys; nothing for other characters.
std::vector<int> KeysOfSymbol(brlapi_keyCode_t symbol) {
    if (symbol >= BRLAPI_KEY_SYM_UNICODE) symbol -= BRLAPI_KEY_SYM_UNICODE;
    if (symbol >= '0' && symbol <= '9') return {static_cast<int>(symbol)};
    if (symbol >= 'a' && symbol <= 'z') return {static_cast<int>(symbol - 'a' + 'A')};
    if (symbol >= 'A' && symbol <= 'Z') return {shift_key, static_cast<int>(symbol)};
    const auto function = symbol - BRLAPI_KEY_SYM_FUNCTION;
    if (symbol >= BRLAPI_KEY_SYM_FUNCTION && function < function_keys) {
        return {first_function_key + static_cast<int>(function)};
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
        std::vector<int> keys = KeysOfSymbol(command);
        return keys.empty() ? BrailleKey{} : BrailleKey{Act::press, std::move(keys)};
    }
    if ((command & BRLAPI_KEY_CMD_BLK_MASK) == BRLAPI_KEY_CMD_ROUTE) {
        return {Act::press, {enter_key}};
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
