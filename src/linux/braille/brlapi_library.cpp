// Loading the library, and a connection by its functions.
#include "linux/braille/brlapi_library.h"

#include <dlfcn.h>

#include <cerrno>

#include "linux/braille/brlapi_keys.h"
#include "linux/system/library_function.h"

namespace tamlo {
namespace {

/// The library's own handler would end the process.
void BRLAPI_STDCALL IgnoreException(brlapi_handle_t*, int, brlapi_packetType_t, const void*,
                                    size_t) {}

}  // namespace

std::optional<BrlapiLibrary> LoadBrlapi() {
    const std::string name =
        "libbrlapi.so." + std::to_string(BRLAPI_MAJOR) + "." + std::to_string(BRLAPI_MINOR);
    void* const library = ::dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) return std::nullopt;
    BrlapiLibrary found{};
    const auto find = [library](const char* symbol, auto& function) {
        return FindFunction(library, symbol, function);
    };
    const bool whole = find("brlapi_getHandleSize", found.handle_size) &&
                       find("brlapi_error_location", found.error) &&
                       find("brlapi__setExceptionHandler", found.set_exception_handler) &&
                       find("brlapi__openConnection", found.open) &&
                       find("brlapi__closeConnection", found.close) &&
                       find("brlapi__getDisplaySize", found.display_size) &&
                       find("brlapi__enterTtyMode", found.enter_tty) &&
                       find("brlapi__enterTtyModeWithPath", found.enter_tty_with_path) &&
                       find("brlapi__leaveTtyMode", found.leave_tty) &&
                       find("brlapi__ignoreKeys", found.ignore_keys) &&
                       find("brlapi__acceptKeys", found.accept_keys) &&
                       find("brlapi__write", found.write) &&
                       find("brlapi__readKey", found.read_key);
    if (!whole) return std::nullopt;
    return found;
}

BrlapiConnection::BrlapiConnection(const BrlapiLibrary& library)
    : library_(library), memory_(std::make_unique<std::byte[]>(library.handle_size())) {}

BrlapiConnection::~BrlapiConnection() {
    if (descriptor_ >= 0) library_.close(Handle());
}

brlapi_handle_t* BrlapiConnection::Handle() const {
    return reinterpret_cast<brlapi_handle_t*>(memory_.get());
}

bool BrlapiConnection::Open() {
    descriptor_ = library_.open(Handle(), nullptr, nullptr);
    if (descriptor_ < 0) return false;
    library_.set_exception_handler(Handle(), IgnoreException);
    return true;
}

bool BrlapiConnection::Enter(std::optional<int> window) {
    if (!window)
        return library_.enter_tty(Handle(), BRLAPI_TTY_DEFAULT, nullptr) >= 0 && TakeKeys();
    const int path = *window;
    return library_.enter_tty_with_path(Handle(), &path, path == 0 ? 0 : 1, nullptr) >= 0 &&
           TakeKeys();
}

bool BrlapiConnection::Refused() const {
    const int error = library_.error()->brlerrno;
    return error == BRLAPI_ERROR_AUTHENTICATION || error == BRLAPI_ERROR_UNKNOWNTTY;
}

/// The keys that the game knows; all others remain BRLTTY's.
bool BrlapiConnection::TakeKeys() {
    const brlapi_keyCode_t typed[] = {BRLAPI_KEY_TYPE_SYM};
    const brlapi_keyCode_t routing[] = {BRLAPI_KEY_TYPE_CMD | BRLAPI_KEY_CMD_ROUTE};
    const auto commands = BrlapiCommands();
    return library_.ignore_keys(Handle(), brlapi_rangeType_all, nullptr, 0) >= 0 &&
           library_.accept_keys(Handle(), brlapi_rangeType_type, typed, 1) >= 0 &&
           library_.accept_keys(Handle(), brlapi_rangeType_command, routing, 1) >= 0 &&
           library_.accept_keys(Handle(), brlapi_rangeType_key, commands.data(),
                                static_cast<unsigned>(commands.size())) >= 0;
}

void BrlapiConnection::Leave() {
    library_.leave_tty(Handle());
}

bool BrlapiConnection::Size(unsigned& columns, unsigned& rows) {
    return library_.display_size(Handle(), &columns, &rows) >= 0;
}

bool BrlapiConnection::Write(const std::string& text, unsigned cells) {
    brlapi_writeArguments_t arguments = BRLAPI_WRITEARGUMENTS_INITIALIZER;
    arguments.regionBegin = 1;
    arguments.regionSize = static_cast<int>(cells);
    arguments.text = text.data();
    arguments.textSize = static_cast<int>(text.size());
    arguments.cursor = BRLAPI_CURSOR_OFF;
    arguments.charset = "UTF-8";
    return library_.write(Handle(), &arguments) >= 0;
}

bool BrlapiConnection::ReadKey(std::optional<brlapi_keyCode_t>& key) {
    brlapi_keyCode_t code = 0;
    const int count = library_.read_key(Handle(), 0, &code);
    key = count > 0 ? std::optional(code) : std::nullopt;
    if (count >= 0) return true;
    const brlapi_error_t& error = *library_.error();
    return error.brlerrno == BRLAPI_ERROR_LIBCERR && error.libcerrno == EINTR;
}

}  // namespace tamlo
