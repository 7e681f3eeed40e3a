// Where the sounds lie for what runs under node: where the build has put them.
#include "app/sounds_folder.h"

namespace tamlo {

std::string SoundsFolder() {
    return TAMLO_SOUNDS;
}

}  // namespace tamlo
