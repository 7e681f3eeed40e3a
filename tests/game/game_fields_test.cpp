// Setting and showing fields of the game's record, and what is refused.
#include "game/game_fields.h"

#include <gtest/gtest.h>

#include "game/game_state.h"

namespace tamlo {
namespace {

TEST(GameFields, TakeAValueAndShowIt) {
    const struct {
        const char *field, *value, *shown;
    } cases[] = {
        {"cash", "12.50", "cash=12.5"},
        {"cash", "-1e3", "cash=-1000"},
        {"plast", "-3", "plast=-3"},
        {"ordx(1)", "7", "ordx(1)=7"},
        {"ordtext(10)", "", "ordtext(10)=\"\""},
        {"nsnames(102)", "a \"b\\c\"\r\nd", "nsnames(102)=\"a \\\"b\\\\c\\\"\\r\\nd\""},
    };
    for (const auto& c : cases) {
        GameState gs;
        EXPECT_EQ(WhyNotSet(c.field, c.value), "");
        EXPECT_EQ(WhyNotShow(c.field), "");
        SetField(gs, c.field, c.value);
        EXPECT_EQ(ShowField(gs, c.field), c.shown);
    }
}

TEST(GameFields, AreRefusedWithAReason) {
    const struct {
        const char *field, *value, *reason;
    } cases[] = {
        {"gold", "1", "there is no field \"gold\""},
        {"ordx", "1", "ordx is a table: write ordx(1)"},
        {"cash(1)", "1", "cash is not a table"},
        {"ordx(0)", "1", "ordx has the entries 1 to 10"},
        {"ordx(11)", "1", "ordx has the entries 1 to 10"},
        {"ordx(1", "1", "ordx has the entries 1 to 10"},
        {"ordx()", "1", "ordx has the entries 1 to 10"},
        {"ordx(1x)", "1", "ordx has the entries 1 to 10"},
        {"plast", "1.5", "\"1.5\" is not a value for plast"},
        {"plast", "", "\"\" is not a value for plast"},
        {"ordx(2)", "two", "\"two\" is not a value for ordx(2)"},
        {"cash", "inf", "\"inf\" is not a value for cash"},
        {"cash", "1 ", "\"1 \" is not a value for cash"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(WhyNotSet(c.field, c.value), c.reason);
        const bool value_is_wrong = std::string_view(c.reason).starts_with('"');
        EXPECT_EQ(WhyNotShow(c.field), value_is_wrong ? "" : c.reason);
    }
}

}  // namespace
}  // namespace tamlo
