// Signals that end a program by default although nobody has asked for its end.
#pragma once

namespace tamlo {

/// Makes this process and its children ignore them. A write beyond the limit of file sizes, or to a
/// pipe without a reader, then fails with an error that can be reported. Signals that ask for the
/// end or report a fault are left as they are.
void IgnoreStraySignals();

}  // namespace tamlo
