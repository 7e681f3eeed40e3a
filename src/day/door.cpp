// The scene at a customer's door.
#include <algorithm>

#include "day/tip.h"
#include "game/form1.h"
#include "orders/sentences.h"

namespace tamlo {
namespace {

constexpr int first_customer = 41;
constexpr int first_man = 61;
constexpr int customers = 40;
constexpr double stop_at_door = 240;  // game seconds

/// The player's character walks, there and back.
void Walk(Form1& form) {
    form.play3(form.gs.gnd == 2 ? "tamlo6" : "tamlo7");
}

void KnockAndWait(Form1& form) {
    form.seed();
    form.play("tamlo" + std::to_string(form.draw(6, 8)));
    form.dy(1);
    form.play("tamlo" + std::to_string(form.draw(3, 14)));
    form.dy(0.4);
}

/// Draws a customer who was not met in the last twenty deliveries.
void DrawCustomer(Form1& form) {
    auto& last = form.gs.lastcust;
    form.seed();
    int customer = 0;
    do {
        customer = form.draw(customers, first_customer);
    } while (std::find(last.begin(), last.end(), customer) != last.end());
    std::move_backward(last.begin(), last.end() - 1, last.end());
    last(1) = customer;
    form.gs.custno = customer;
}

void Arrive(Form1& form) {
    form.saywhere();
    form.gs.ypt = 1;
    form.saytime();
    form.gs.ypt = 0;
    form.dy(0.7);
    form.play2("tamlo17");
    form.dy(0.4);
    form.stoppidl();
    form.dy(0.7);
    Walk(form);
    form.bgdown();
    if (form.gs.gnd == 1) form.dy(0.5);
}

/// Greets the customer and tells the price; returns the price as text.
std::string Greet(Form1& form, int k) {
    const GameState& gs = form.gs;
    form.play("tamlo" + std::to_string(gs.custno));
    form.dy(0.4);
    const std::string item = ItemPhrase(gs.ordtext(k));
    form.say(gs.ordqty(k) == 1 ? "Hi. here is your " + item
                               : "Hi. here are your " + std::to_string(gs.ordqty(k)) + " " + item);
    std::string price = form.money(gs.ordprice(k));
    form.dy(0.4);
    form.say("That will be" + price + " please.");
    form.dy(0.5);
    return price;
}

void GetPaid(Form1& form, int k, const std::string& price) {
    GameState& gs = form.gs;
    const double tip = Tip(gs.ordprice(k), gs.ordeta(k), gs.tit);
    gs.triptips += tip;
    gs.cash += tip;
    const std::string tip_text = form.money(tip);
    form.dy(0.2);
    form.play("tamlo81");
    form.play("tamlo85");
    form.dy(0.2);
    form.saylog((gs.custno < first_man ? " She  pays you" : " He  pays you") + price);
    form.dy(0.2);
    if (tip > 0.99) form.play("tamlo81");
    form.play("tamlo85");
    form.saylog(" plus a tip of" + tip_text);
}

void CloseOrder(GameState& gs, int k) {
    --gs.p2d;
    gs.ordopen(k) = 0;
    gs.ordx(k) = -1;
    gs.ordy(k) = -1;
}

}  // namespace

void Form1::deliver(int k) {
    Arrive(*this);
    KnockAndWait(*this);
    DrawCustomer(*this);
    const std::string price = Greet(*this, k);
    GetPaid(*this, k, price);
    addtime(stop_at_door);
    dy(0.3);
    say(" Thank you ");
    dy(0.2);
    Walk(*this);
    bgup();
    CloseOrder(gs, k);
    dy(0.8);
    startcar();
    pidl();
}

}  // namespace tamlo
