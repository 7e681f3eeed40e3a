#include "app/sounds_folder.h"

#include <filesystem>

#include "linux/system/programs.h"

namespace tamlo {

std::string SoundsFolder() {
    std::string own = ProgramFolder();
    // Relative, so that an installed game can be moved, or unpacked anywhere.
    for (const char* folder : {"/.", "/../game", "/../../../share/games/tamlo-delivery"}) {
        std::error_code none;
        const auto found = std::filesystem::canonical(own + folder, none);
        if (!none && std::filesystem::exists(found / "tamlo1.wav", none)) return found.string();
    }
    return own;
}

}  // namespace tamlo
