#include "app/tool_list.h"

#include "game/form1.h"
#include "services/end_of_process.h"
#include "services/events.h"
#include "services/key_codes.h"

namespace tamlo {
namespace {

constexpr int leave = -1;
constexpr int help = -2;

MenuKey ToolKey(const Form1& form) {
    if (form.gs.g == keys::escape) return MenuKey::Leave(leave);
    if (form.gs.g == keys::f1) return MenuKey::Leave(help);
    return {};
}

}  // namespace

void OpenTool(Form1& form, const char* caption) {
    form.platform.events.ShowWindow(caption);
    form.opensound();
    form.countvoices();
    form.getdatapath();
    form.readCFG();
    form.setupvoice();
}

void RunToolList(Form1& form, ListMenu list, const std::string& welcome,
                 const std::function<void(int item)>& chosen) {
    list.extra = [&form](int) { return ToolKey(form); };
    form.say2(welcome);
    while (true) {
        const int item = form.runMenu(list);
        list.prompt = "";
        if (item == leave) break;
        if (item == help) {
            form.say2(welcome);
            continue;
        }
        chosen(item);
        list.first = item;  // the list continues at this item
    }
    form.say(" Good bye. ");
    throw EndOfProcess{};
}

}  // namespace tamlo
