// The fields of the orders and of the clocks that are spoken with them.
#pragma once

#include <string>

#include "game/one_based.h"

namespace tamlo {

inline constexpr int most_orders = 10;

struct OrderFields {
    // One row per order; a trip uses rows 1 to noos.
    OneBased<int, most_orders> ordx;             ///< street of the delivery, -1 when delivered
    OneBased<int, most_orders> ordy;             ///< road of the delivery, -1 when delivered
    OneBased<std::string, most_orders> ordtext;  ///< the sentence that announces it
    OneBased<double, most_orders> ordprice;      ///< dollars
    OneBased<int, most_orders> ordopen;          ///< 1 while it is still to be delivered
    OneBased<int, most_orders> ordeta;           ///< expected trip time at the door, game seconds
    OneBased<int, most_orders> ordqty;           ///< number of tamlos, 1 to 10

    int noos = 1;  ///< orders handed out for a trip, 1 to 3
    int p2d = 0;   ///< orders of the trip still to deliver
    int npd = 0;   ///< tamlos ordered on all days; counted as delivered
    int nst = 0;   ///< how often orders were read out since they were made
    OneBased<std::string, 33> toppings;

    double atod = 0;  ///< game clock, seconds since midnight; a day starts at 10800 (3:00)
    double tit = 0;   ///< time of the current trip, game seconds
    int ypt = 0;      ///< 1 while saytime also writes into the daily log
    std::string tp5;  ///< text of the amount last given to fm5
};

}  // namespace tamlo
