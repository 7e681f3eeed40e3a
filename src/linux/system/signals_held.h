// Signals are for the game's thread, which a signal is to wake: threads are made without them.
#pragma once

#include <pthread.h>
#include <signal.h>

namespace tamlo {

/// A thread that is made while this lives gets no signals; nor does the maker, until it goes.
class SignalsHeld {
  public:
    SignalsHeld() noexcept {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    ~SignalsHeld() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    SignalsHeld(const SignalsHeld&) = delete;
    SignalsHeld& operator=(const SignalsHeld&) = delete;

  private:
    sigset_t before_;
};

}  // namespace tamlo
