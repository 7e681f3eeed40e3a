// The daily log: a header with the date of its start, and one line per logged sentence.
#include <algorithm>

#include "game/form1.h"
#include "services/clock.h"
#include "services/files.h"

namespace tamlo {
namespace {

constexpr std::string_view log_name = "tamlolog.txt";

std::string TwoDigits(int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

}  // namespace

void Form1::startlog() {
    const Date today = platform.clock.Today();
    const std::string header = " Tamlo Delivery log file on " + TwoDigits(today.month) + "-" +
                               TwoDigits(today.day) + "-" + std::to_string(today.year);
    if (!platform.files.Replace(path(log_name), header + "\r\n\r\n")) {
        gs.nowrite = std::max(gs.nowrite, 1);
    }
}

// A log that can't be written does not stop the game.
void Form1::logline(std::string_view line) {
    if (!platform.files.Append(path(log_name), std::string(line) + "\r\n")) {
        gs.nowrite = std::max(gs.nowrite, 1);
    }
}

void Form1::saylog(std::string_view text) {
    say(text);
    logline(text);
}

void Form1::say2log(std::string_view text) {
    say2(text);
    logline(text);
}

void Form1::logsay(std::string_view text) {
    logline(text);
    say(text);
}

}  // namespace tamlo
