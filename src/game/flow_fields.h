// The fields of the day's flow: money, promotion, play time, the trip.
#pragma once

#include "game/one_based.h"

namespace tamlo {

struct FlowFields {
    double cash = 0;  ///< dollars earned, not rounded
    int plast = 1;    ///< vehicle: 1 scooter, 2 dune buggy, 3 van

    int nhr = 0;     ///< total play time of the finished days: hours,
    int nmt = 0;     ///< minutes, 0 to 59,
    double nsd = 0;  ///< seconds, 0 to under 60

    int firsttrip = 1;    ///< 1 until the first trip of the run, which skips the restaurant menu
    int saidhome = 1;     ///< 1 until the restaurant's location has been spoken
    int engon = 0;        ///< 1 once the engine has been started for the trip
    int oc1 = 1;          ///< 1 until the road events of the last block have been played
    double triptips = 0;  ///< tips of the trip, dollars

    OneBased<int, 20> lastcust;  ///< customer voices of the last deliveries, newest first
    int custno = 0;              ///< customer voice of this delivery: 41 to 60 women, 61 to 80 men
};

}  // namespace tamlo
