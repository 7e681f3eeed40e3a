// Signals whose default ends a program although nobody has asked for its end.
#pragma once

namespace tamlo {

/// From now on this process and its children ignore them. A write beyond the limit of file sizes
/// or to a pipe that nobody reads then fails with an error, which can be told; the others have no
/// meaning here. Those that ask for the end or report a fault keep their defaults.
void IgnoreStraySignals();

}  // namespace tamlo
