// The main menu.
#include "game/form1.h"
#include "speech/menus.h"

namespace tamlo {
namespace {

constexpr int edit_item = 10;
constexpr int from_the_start = 0;

ListMenu MainMenu() {
    return {.items = {" start game ", " reed instructions ", " reed special key instructions ",
                      " change voice ", " adjust rate of speech ", " adjust volume ",
                      " choose gender ", " delete saved game ", " create city streets file ",
                      " edit city streets file ", " delete city streets file ", " exit game "},
            .clear = true};
}

/// The menu after a file was created: it starts at the item that edits the file and keeps the
/// pending key; a wrong key leads back to the full menu.
ListMenu MenuAtEdit(Form1& form) {
    ListMenu menu = MainMenu();
    menu.first = edit_item;
    menu.clear = false;
    menu.extra = [&form](int) {
        form.saykey();
        return MenuKey::Leave(from_the_start);
    };
    return menu;
}

}  // namespace

void Form1::mainmenu() {
    bool at_edit = false;
    while (true) {
        const int item = runMenu(at_edit ? MenuAtEdit(*this) : MainMenu());
        at_edit = false;
        switch (item) {
            case 1:
                if (startgame()) return;
                break;
            case 2: readins(); break;
            case 3: speckeys(); break;
            case 4: changevoice(); break;
            case 5: adjrate(); break;
            case 6: adjvol(); break;
            case 7:
                choosegender();
                dy(0.2);
                break;
            case 8: desag(); break;
            case 9: at_edit = createcity(); break;
            case 10: editcity(); break;
            case 11: deletecity(); break;
            case 12: runEnd();
            default: break;
        }
    }
}

}  // namespace tamlo
