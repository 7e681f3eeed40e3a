// Functions of libraries that are loaded while the program runs.
#pragma once

#include <dlfcn.h>

namespace tamlo {

/// Looks a function up in a library from dlopen. False if the library has none of this name;
/// `function` is null then.
template <class Function>
bool FindFunction(void* library, const char* name, Function*& function) {
    function = reinterpret_cast<Function*>(::dlsym(library, name));
    return function != nullptr;
}

}  // namespace tamlo
