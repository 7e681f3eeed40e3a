// The folder of the game's sounds, for a program in the build, in a package or in an archive.
#pragma once

#include <string>

namespace tamlo {

/// The first of these that contains the title tune: the program's own folder, the game's folder in
/// a build, the folder of an installed game. The program's own folder if none does.
std::string SoundsFolder();

}  // namespace tamlo
