// The orders of a trip, and the scene at the door that each leads to.
#include <gtest/gtest.h>

#include <set>

#include "rehearsed_game.h"

namespace tamlo {
namespace {

using Texts = std::vector<std::string>;

TEST(Orders, AreMadeAsTheDrawsSay) {
    struct Case {
        std::string what;
        int plast;
        std::string draws;
        std::string text;
        double price;
        int x, y;
    };
    const Case cases[] = {
        // Quantity, size, count of toppings, toppings, street, road.
        {"large, two toppings", 1, "0.5 0.2 0 0.04 0.999 0",
         " There is an order for 1 large, anchovies and bacon tamlo.  To be delivered to the "
         "corner of Fifteenth Avenue and Eucalyptus.  cost $18.95. ",
         18.95, 66, 15},
        {"a topping drawn twice is drawn again", 1, "0 0.2 0 0 0.04 0 0",
         " There is an order for 1 extra large, anchovies and bacon tamlo.  To be delivered to the "
         "corner of Fifteenth Street and Eucalyptus.  cost $22.45. ",
         22.45, 37, 15},
        {"the restaurant's corner is drawn again", 1, "0 0 0 0.49 0.55 0 0",
         " There is an order for 1 extra large, anchovies tamlo.  To be delivered to the corner of "
         "Fifteenth Street and Eucalyptus.  cost $19.95. ",
         19.95, 37, 15},
        {"buggy: two at the most", 2, "0.999 0.999 0 0 0 0 0",
         " There is an order for 2 extra large, anchovies tamlos.  To be delivered to the corner "
         "of "
         "Thirty Third Street and Orange.  cost $39.90. ",
         39.9, 19, 8},
        {"van: ten", 3, "0.999 0.5 0.999 0 0.1 0.2 0.3 0.4 0.5 0.999 0",
         " There is an order for 10 large, anchovies, banana peppers, chicken, green olives, "
         "mushroom and pineapple tamlos.  To be delivered to the corner of Fifty First Avenue and "
         "Willow.  cost $269.50. ",
         269.5, 102, 1},
    };
    for (const Case& c : cases) {
        RehearsedGame game;
        game.Perform("draw " + c.draws, [&](Form1& form) {
            form.gs.plast = c.plast;
            form.setmaxa();
            form.getord();
            EXPECT_EQ(form.gs.ordtext(1), c.text) << c.what;
            EXPECT_NEAR(form.gs.ordprice(1), c.price, 1e-9);
            EXPECT_EQ(form.gs.ordx(1), c.x) << c.what;
            EXPECT_EQ(form.gs.ordy(1), c.y) << c.what;
        });
    }
}

TEST(Orders, StayInTheAreaOfEachVehicleAndAddUpTheirTimes) {
    const struct {
        int plast, least_x, most_x, least_y, most_y, least, most;
    } cases[] = {{1, 37, 66, 15, 29, 1, 1}, {2, 19, 83, 8, 37, 1, 2}, {3, 1, 102, 1, 44, 2, 10}};
    for (const auto& c : cases) {
        std::set<int> xs, ys, quantities;
        int first_road = 0;
        int second_road = 0;
        RehearsedGame game;
        game.Perform("", [&](Form1& form) {
            GameState& gs = form.gs;
            gs.plast = c.plast;
            form.setmaxa();
            for (int i = 0; i < 1500; ++i) {
                gs.noos = 3;
                form.getord();
                for (int k = 1; k <= 3; ++k) {
                    xs.insert(gs.ordx(k));
                    ys.insert(gs.ordy(k));
                    quantities.insert(gs.ordqty(k));
                    first_road += gs.ordy(k) == 1;
                    second_road += gs.ordy(k) == 2;
                    EXPECT_FALSE(gs.ordy(k) == 23 && (gs.ordx(k) == 51 || gs.ordx(k) == 52));
                }
                EXPECT_EQ(gs.ordeta(2) - gs.ordeta(1),
                          40 * (std::abs(gs.ordx(2) - gs.ordx(1)) +
                                std::abs(gs.ordy(2) - gs.ordy(1)) + 4));
            }
        });
        EXPECT_EQ(*xs.begin(), c.least_x);
        EXPECT_EQ(*xs.rbegin(), c.most_x);
        EXPECT_EQ(*ys.begin(), c.least_y);
        EXPECT_EQ(*ys.rbegin(), c.most_y);
        EXPECT_EQ(*quantities.begin(), c.least);
        EXPECT_EQ(*quantities.rbegin(), c.most);
        if (c.plast == 3) {
            EXPECT_NEAR(first_road, 2 * second_road, 80);
        }
    }
}

TEST(Orders, ExpectedTimesAreToldOnceAndAKeySilencesTheRest) {
    RehearsedGame game;
    const auto run = game.Perform("upon \"First one\" k\npress enter", [](Form1& form) {
        GameState& gs = form.gs;
        gs.noos = 3;
        gs.p2d = 3;
        for (int k = 1; k <= 3; ++k) {
            gs.ordopen(k) = 1;
            gs.ordqty(k) = k;
            gs.ordeta(k) = 59 + k;
        }
        gs.ordtext(1) = "First one.";
        gs.ordtext(2) = "Second one.";
        gs.ordtext(3) = "Third one.";
        form.sayord();  // silenced by k
        form.sayord();
        gs.p2d = 0;
        form.sayord();
    });
    EXPECT_EQ(run.Spoken(),
              (Texts{"First one.  They are expecting their tamlo in approximately 1 minute",
                     "First one. ", "Second one. ", "Third one. ",
                     " You no longer have any tamlos to deliver. It's time to head back to the "
                     "Tamlo Vorrel, on Center, between First Street and First Avenue. "}));
    EXPECT_EQ(game.Content("tamlolog.txt"),
              "First one.\r\nSecond one.\r\nThird one.\r\nFirst one.\r\nSecond one.\r\nThird "
              "one.\r\n");
}

TEST(Door, SmallTipsClinkOnlyAndWomenAndNumbersAreToldRight) {
    const struct {
        double late, price, customer;  // the draw of the customer: 60 is the last woman
        int quantity;
        std::string tip, pays, greeting;
        int notes;
    } cases[] = {
        {451, 100, 0.475, 3, " plus a tip of $.02", " She  pays you $100.",
         "Hi. here are your 3 large tamlos", 1},
        {450, 100, 0.475, 3, " plus a tip of $.", " She  pays you $100.", "3 large tamlos", 1},
        {0, 5.5, 0.475, 10, " plus a tip of $.99", " She  pays you $5.50",
         "Hi. here are your 10  large tamlos", 1},
        {-25, 5.26315789473684248, 0.5, 2, " plus a tip of $1.", " He  pays you $5.26",
         "Hi. here are your 2 large tamlos", 2},
    };
    for (const auto& c : cases) {
        RehearsedGame game;
        const auto run = game.Perform("draw 0 0 " + std::to_string(c.customer), [&](Form1& form) {
            GameState& gs = form.gs;
            gs.tit = 1000 + c.late;
            gs.ordeta(1) = 1000;
            gs.ordprice(1) = c.price;
            gs.ordqty(1) = c.quantity;
            gs.ordtext(1) =
                " There is an order for " + std::to_string(c.quantity) + " large tamlos.";
            gs.rox = gs.roy = 1;
            form.deliver(1);
        });
        EXPECT_TRUE(run.Heard(c.tip)) << c.tip << run.trace;
        EXPECT_TRUE(run.Heard(c.pays)) << c.pays;
        EXPECT_TRUE(run.Heard(c.greeting)) << c.greeting;
        EXPECT_EQ(run.Count("play tamlo81"), c.notes) << c.tip;
        EXPECT_EQ(run.Count("play tamlo85"), 2);
    }
}

TEST(Door, NoCustomerComesTwiceInTwentyOne) {
    RehearsedGame game;
    std::vector<int> customers;
    game.Perform("", [&](Form1& form) {
        form.gs.ordqty(1) = 1;
        while (customers.size() < 400) {
            form.deliver(1);
            customers.push_back(form.gs.custno);
        }
    });
    std::set<int> seen;
    int again_after_twenty = 0;
    for (std::size_t i = 0; i < customers.size(); ++i) {
        seen.insert(customers[i]);
        again_after_twenty += i > 20 && customers[i] == customers[i - 21];
        for (std::size_t back = 1; back <= 20 && back <= i; ++back) {
            EXPECT_NE(customers[i], customers[i - back]);
        }
    }
    EXPECT_GT(again_after_twenty, 0);
    for (int c = 41; c <= 80; ++c) EXPECT_TRUE(seen.count(c)) << c;
    EXPECT_EQ(*seen.begin(), 41);
    EXPECT_EQ(*seen.rbegin(), 80);
}

}  // namespace
}  // namespace tamlo
