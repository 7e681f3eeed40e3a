// The functions of BRLTTY's library, found when the game runs.
#pragma once

#define BRLAPI_NO_SINGLE_SESSION
#include <brlapi.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace tamlo {

struct BrlapiLibrary {
    decltype(&brlapi_getHandleSize) handle_size;
    decltype(&brlapi_error_location) error;
    decltype(&brlapi__setExceptionHandler) set_exception_handler;
    decltype(&brlapi__openConnection) open;
    decltype(&brlapi__closeConnection) close;
    decltype(&brlapi__getDisplaySize) display_size;
    decltype(&brlapi__enterTtyMode) enter_tty;
    decltype(&brlapi__enterTtyModeWithPath) enter_tty_with_path;
    decltype(&brlapi__leaveTtyMode) leave_tty;
    decltype(&brlapi__ignoreKeys) ignore_keys;
    decltype(&brlapi__acceptKeys) accept_keys;
    decltype(&brlapi__write) write;
    decltype(&brlapi__readKey) read_key;
};

/// The library of the version that the header is of; none where it is not installed.
std::optional<BrlapiLibrary> LoadBrlapi();

/// A connection to BRLTTY. Every call waits for its answer, which may take long.
class BrlapiConnection {
  public:
    explicit BrlapiConnection(const BrlapiLibrary& library);
    BrlapiConnection(const BrlapiConnection&) = delete;
    BrlapiConnection& operator=(const BrlapiConnection&) = delete;
    ~BrlapiConnection();

    /// False where BRLTTY does not answer, or lets nobody in. To be called once.
    bool Open();
    /// Becomes readable when a key has come or the connection is lost.
    int Readable() const { return descriptor_; }

    /// Takes the display while what is shown there has the focus: this terminal, or, given its
    /// number, a window of the desktop (0: the desktop itself). False if BRLTTY has no such place.
    bool Enter(std::optional<int> window);
    /// Whether Open or Enter has failed because BRLTTY says no, which it will say again.
    bool Refused() const;
    void Leave();
    /// Cells in a row and rows; both 0 while no display is plugged in. False if the connection is
    /// lost, as below.
    bool Size(unsigned& columns, unsigned& rows);
    /// Shows as many characters as there are cells.
    bool Write(const std::string& text, unsigned cells);
    /// The next key that has come, if any.
    bool ReadKey(std::optional<brlapi_keyCode_t>& key);

  private:
    brlapi_handle_t* Handle() const;
    bool TakeKeys();

    const BrlapiLibrary& library_;
    std::unique_ptr<std::byte[]> memory_;
    int descriptor_ = -1;
};

}  // namespace tamlo
