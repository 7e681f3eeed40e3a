// Dates and times of day, as plain numbers.
#pragma once

namespace tamlo {

struct TimeOfDay {
    int hour = 0;  ///< 0 to 23
    int minute = 0;
    int second = 0;
};

struct Date {
    int year = 0;
    int month = 1;  ///< 1 to 12
    int day = 1;
};

}  // namespace tamlo
