// Where the sounds of the game are, seen from a program of the build, of a package or of an
// archive.
#pragma once

#include <string>

namespace tamlo {

/// The first of these that holds the title tune: the program's own folder, the game's folder of a
/// build, the folder of an installed game. The program's own folder if none does.
std::string SoundsFolder();

}  // namespace tamlo
