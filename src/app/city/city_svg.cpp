#include "app/city/city_svg.h"

#include <array>
#include <sstream>

#include "city/city_map.h"
#include "city/street_names.h"
#include "text/printable.h"

namespace tamlo {
namespace {

constexpr int gap = 16;    // between one street and the next, pixels
constexpr int left = 130;  // room for the names of roads
constexpr int top = 190;   // for the title and the names of streets
constexpr int streets = most_streets;
constexpr int roads = 45;
constexpr int legend = 90;

struct Sign {
    char mark;
    const char* colour;
};
constexpr std::array<Sign, 5> signs = {
    {{'=', "#1b7f3b"}, {'X', "#b3261e"}, {'T', "#7a4a00"}, {'P', "#1a4fb4"}, {'H', "#a3007f"}}};

int Across(int street) {
    return left + (street - 1) * gap;
}

int Down(int road) {
    return top + (road - 1) * gap;
}

std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : PrintableLine(text)) {
        switch (c) {
            case '&': escaped += "&amp;"; break;
            case '<': escaped += "&lt;"; break;
            case '>': escaped += "&gt;"; break;
            default: escaped += c;
        }
    }
    return escaped;
}

void DrawStreets(std::ostream& svg, const std::vector<std::string>& names) {
    for (int road = 1; road <= roads; ++road) {
        svg << "<path d=\"M" << Across(1) << ' ' << Down(road) << 'H' << Across(streets)
            << "\"/>\n<text x=\"" << left - 10 << "\" y=\"" << Down(road) + 4
            << "\" text-anchor=\"end\">" << Escaped(names[static_cast<std::size_t>(road) - 1])
            << "</text>\n";
    }
    for (int street = 1; street <= streets; ++street) {
        svg << "<path d=\"M" << Across(street) << ' ' << Down(1) << 'V' << Down(roads)
            << "\"/>\n<text transform=\"translate(" << Across(street) + 4 << ' ' << top - 10
            << ") rotate(-90)\">" << Escaped(names[static_cast<std::size_t>(roads + street) - 1])
            << "</text>\n";
    }
}

void DrawSign(std::ostream& svg, const Sign& sign, int x, int y) {
    svg << "<circle cx=\"" << x << "\" cy=\"" << y << "\" r=\"8\" fill=\"" << sign.colour
        << "\"/>\n<text class=\"sign\" x=\"" << x << "\" y=\"" << y + 4 << "\">"
        << (sign.mark == '=' ? 'R' : sign.mark) << "</text>\n";
}

void DrawSigns(std::ostream& svg) {
    for (const Sign& sign : signs)
        for (int street = 1; street <= streets; ++street)
            for (int road = 1; road <= roads; ++road)
                if (MarkOf(street, road) == sign.mark)
                    DrawSign(svg, sign, Across(street), Down(road));
}

void DrawLegend(std::ostream& svg) {
    int x = left;
    const int y = Down(roads) + legend / 2;
    for (const Sign& sign : signs) {
        for (const MapMark& mark : map_marks) {
            if (mark.cell != sign.mark) continue;
            DrawSign(svg, sign, x, y);
            svg << "<text class=\"legend\" x=\"" << x + 16 << "\" y=\"" << y + 5 << "\">"
                << mark.meaning << "</text>\n";
        }
        x += 240;
    }
}

}  // namespace

std::string CityAsSvg(const std::string& title, const std::vector<std::string>& names) {
    const int width = Across(streets) + 30, height = Down(roads) + legend;
    std::ostringstream svg;
    svg << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " << width << ' ' << height
        << "\" role=\"img\" font-family=\"sans-serif\" font-size=\"11\">\n<title>" << Escaped(title)
        << "</title>\n<style>path{stroke:#b9b9b9} .sign{fill:#fff;"
        << "text-anchor:middle;font-weight:bold} .legend{font-size:15px}</style>\n"
        << "<rect width=\"100%\" height=\"100%\" fill=\"#fff\"/>\n<text x=\"" << left
        << "\" y=\"34\" font-size=\"24\">" << Escaped(title) << "</text>\n<text x=\"" << width - 60
        << "\" y=\"34\" font-size=\"15\">North \xe2\x86\x91</text>\n";
    DrawStreets(svg, names);
    DrawSigns(svg);
    DrawLegend(svg);
    svg << "</svg>\n";
    return svg.str();
}

}  // namespace tamlo
