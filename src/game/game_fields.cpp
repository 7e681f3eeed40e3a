#include "game/game_fields.h"

#include <charconv>
#include <functional>
#include <map>
#include <optional>
#include <variant>

#include "game/game_state.h"
#include "text/number_text.h"
#include "text/printable.h"

namespace tamlo {
namespace {

using Field = std::variant<int*, double*, std::string*>;

/// A field of the record: element `index` of an array of `size`, or a plain field of size 0.
struct FieldEntry {
    std::function<Field(GameState&, int index)> at;
    int size = 0;
};

template <typename T, typename Base>
FieldEntry Entry(T Base::*member) {
    return {[member](GameState& gs, int) -> Field { return &(gs.*member); }, 0};
}

template <typename T, std::size_t n, typename Base>
FieldEntry Entry(OneBased<T, n> Base::*member) {
    return {[member](GameState& gs, int index) -> Field { return &(gs.*member)(index); },
            static_cast<int>(n)};
}

const std::map<std::string, FieldEntry, std::less<>>& Fields() {
#define TAMLO_FIELD(name) \
    { #name, Entry(&GameState::name) }
    static const std::map<std::string, FieldEntry, std::less<>> fields = {
        TAMLO_FIELD(g),         TAMLO_FIELD(g2),       TAMLO_FIELD(r),       TAMLO_FIELD(vr),
        TAMLO_FIELD(vv),        TAMLO_FIELD(nv),       TAMLO_FIELD(nov),     TAMLO_FIELD(gnd),
        TAMLO_FIELD(wavol),     TAMLO_FIELD(ajv),      TAMLO_FIELD(wcv),     TAMLO_FIELD(rox),
        TAMLO_FIELD(roy),       TAMLO_FIELD(roz),      TAMLO_FIELD(nsnames), TAMLO_FIELD(ewnames),
        TAMLO_FIELD(dirnames),  TAMLO_FIELD(sok),      TAMLO_FIELD(ncsf),    TAMLO_FIELD(nsf),
        TAMLO_FIELD(csfnames),  TAMLO_FIELD(ordx),     TAMLO_FIELD(ordy),    TAMLO_FIELD(ordtext),
        TAMLO_FIELD(ordprice),  TAMLO_FIELD(ordopen),  TAMLO_FIELD(ordeta),  TAMLO_FIELD(ordqty),
        TAMLO_FIELD(noos),      TAMLO_FIELD(p2d),      TAMLO_FIELD(npd),     TAMLO_FIELD(nst),
        TAMLO_FIELD(toppings),  TAMLO_FIELD(atod),     TAMLO_FIELD(tit),     TAMLO_FIELD(ypt),
        TAMLO_FIELD(tp5),       TAMLO_FIELD(sped),     TAMLO_FIELD(spedo),   TAMLO_FIELD(mst),
        TAMLO_FIELD(mew),       TAMLO_FIELD(cartog),   TAMLO_FIELD(evhist),  TAMLO_FIELD(datapath),
        TAMLO_FIELD(nowrite),   TAMLO_FIELD(noread),   TAMLO_FIELD(badsave), TAMLO_FIELD(cash),
        TAMLO_FIELD(plast),     TAMLO_FIELD(nhr),      TAMLO_FIELD(nmt),     TAMLO_FIELD(nsd),
        TAMLO_FIELD(firsttrip), TAMLO_FIELD(saidhome), TAMLO_FIELD(engon),   TAMLO_FIELD(oc1),
        TAMLO_FIELD(triptips),  TAMLO_FIELD(lastcust), TAMLO_FIELD(custno),
    };
#undef TAMLO_FIELD
    return fields;
}

bool ReadWhole(std::string_view text, int& value) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size();
}

/// A field found by its name in a script: `cash` or `ordx(3)`.
struct Found {
    const FieldEntry* entry = nullptr;
    int index = 0;
    std::string error;
};

Found Find(std::string_view field) {
    const std::size_t bracket = field.find('(');
    const std::string name(field.substr(0, bracket));
    const auto at = Fields().find(name);
    if (at == Fields().end()) return {nullptr, 0, "there is no field \"" + name + "\""};
    const FieldEntry& entry = at->second;
    if (bracket == std::string_view::npos) {
        if (entry.size == 0) return {&entry, 0, ""};
        return {nullptr, 0, name + " is a table: write " + name + "(1)"};
    }
    if (entry.size == 0) return {nullptr, 0, name + " is not a table"};
    int index = 0;
    if (field.back() != ')' ||
        !ReadWhole(field.substr(bracket + 1, field.size() - bracket - 2), index) || index < 1 ||
        index > entry.size) {
        return {nullptr, 0, name + " has the entries 1 to " + std::to_string(entry.size)};
    }
    return {&entry, index, ""};
}

struct Setter {
    std::string_view value;
    bool operator()(int* field) const { return ReadWhole(value, *field); }
    bool operator()(double* field) const {
        const std::optional<double> number = ReadNumber(value);
        if (number) *field = *number;
        return number.has_value();
    }
    bool operator()(std::string* field) const {
        *field = value;
        return true;
    }
};

struct Shower {
    std::string operator()(const int* field) const { return std::to_string(*field); }
    std::string operator()(const double* field) const { return Plain(*field); }
    std::string operator()(const std::string* field) const { return Quoted(*field); }
};

}  // namespace

std::string WhyNotSet(std::string_view field, std::string_view value) {
    const Found found = Find(field);
    if (!found.entry) return found.error;
    GameState scratch;
    if (std::visit(Setter{value}, found.entry->at(scratch, found.index))) return "";
    return "\"" + std::string(value) + "\" is not a value for " + std::string(field);
}

std::string WhyNotShow(std::string_view field) {
    return Find(field).error;
}

void SetField(GameState& gs, std::string_view field, std::string_view value) {
    const Found found = Find(field);
    if (found.entry) std::visit(Setter{value}, found.entry->at(gs, found.index));
}

std::string ShowField(const GameState& gs, std::string_view field) {
    const Found found = Find(field);
    if (!found.entry) return "";
    // The table gives non-const access; nothing is written here.
    return std::string(field) + "=" +
           std::visit(Shower{}, found.entry->at(const_cast<GameState&>(gs), found.index));
}

}  // namespace tamlo
