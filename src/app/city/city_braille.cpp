#include "app/city/city_braille.h"

#include <algorithm>

#include "city/city_check.h"
#include "city/city_map.h"
#include "game/city_fields.h"
#include "game/restaurant.h"
#include "reading/pages.h"

namespace tamlo {
namespace {

/// The number of a street or road in two cells: the letters for its last two digits.
std::string Digits(int number) {
    constexpr std::string_view letters = "JABCDEFGHI";
    const auto digit = [&](int d) { return letters[static_cast<std::size_t>(d % 10)]; };
    return {digit(number / 10), digit(number)};
}

void AddLegend(BraillePages& pages, BrailleTranslator& translator, const std::string& city) {
    pages.Heading("Map of " + city, 1);
    pages.Paragraph(
        "Four sheets meet at the restaurant. Each has ten streets and ten roads. North is up.");
    pages.Paragraph(
        "Above a sheet are the numbers of its streets, counted from the west edge of the city. At "
        "the left are the numbers of its roads, counted from the north edge. They have no number "
        "sign. Behind each sheet are the names.");
    pages.Paragraph("The restaurant is on the south side of road " +
                    std::to_string(restaurant_road) + ", between streets " +
                    std::to_string(restaurant_west_street) + " and " +
                    std::to_string(restaurant_east_street) + ".");
    pages.Heading("Marks", 2);
    for (const MapMark& mark : map_marks) {
        pages.Cells(std::string(1, mark.cell) + "  " + translator.Translate(mark.meaning));
    }
}

void AddSheet(BraillePages& pages, const MapSheet& sheet) {
    pages.NewPage();
    pages.Heading("Sheet " + std::string(sheet.name), 2);
    pages.BlankLine();
    std::string streets = "   ";
    for (int i = 0; i < sheet_side; ++i) streets += " " + Digits(sheet.first_street + i);
    pages.Cells(streets);
    int road = sheet.first_road;
    for (const std::string& row : Marks(sheet)) {
        std::string line = Digits(road++) + " ";
        for (const char mark : row) line += std::string("  ") + mark;
        pages.Cells(line);
    }
}

void AddNames(BraillePages& pages, const MapSheet& sheet, const std::vector<std::string>& names) {
    pages.Heading("Streets", 2);
    for (int street = sheet.first_street; street < sheet.first_street + sheet_side; ++street) {
        pages.Item(std::to_string(street) + " " +
                   names[static_cast<std::size_t>(most_roads + street - 1)]);
    }
    pages.Heading("Roads", 2);
    for (int road = sheet.first_road; road < sheet.first_road + sheet_side; ++road) {
        pages.Item(std::to_string(road) + " " + names[static_cast<std::size_t>(road - 1)]);
    }
}

/// The name in small letters, so that the index is sorted without regard to case.
std::string SortedBy(const std::string& name) {
    std::string key = name;
    for (char& c : key) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    }
    return key;
}

void AddIndex(BraillePages& pages, const std::vector<std::string>& names) {
    pages.NewPage();
    pages.Heading("Index of names", 1);
    std::vector<std::pair<std::string, std::string>> entries;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string name = names[i].empty() ? "(no name)" : names[i];
        entries.emplace_back(SortedBy(name), name + ": " + PlaceOfName(static_cast<int>(i) + 1));
    }
    std::sort(entries.begin(), entries.end());
    for (const auto& [key, entry] : entries) pages.Item(entry);
}

}  // namespace

std::string CityInBraille(const std::string& city, const std::vector<std::string>& names,
                          BrailleTranslator& translator) {
    BraillePages pages(translator);
    AddLegend(pages, translator, city);
    for (const MapSheet& sheet : map_sheets) {
        AddSheet(pages, sheet);
        AddNames(pages, sheet, names);
    }
    AddIndex(pages, names);
    return pages.File();
}

}  // namespace tamlo
