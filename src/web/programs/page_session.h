// The game joined to the page it runs in.
#pragma once

#include <functional>
#include <string>

namespace tamlo {

class Form1;
class PageEvents;
class PageMail;

/// What is done with the game once it stands.
using Session = std::function<void(Form1&)>;

/// How a run ended.
struct PageEnd {
    int exit_status = 0;
    std::string reason;  ///< a line for the page, or empty
    bool restart = false;
};

/// Runs a session to its EndOfProcess. `events` and `mail` are the page's as well.
PageEnd PlayInPage(PageEvents& events, PageMail& mail, const Session& session);

/// Speaks a text to its end, for what is to be said where no game runs.
PageEnd SayInPage(PageEvents& events, const std::string& text);

}  // namespace tamlo
