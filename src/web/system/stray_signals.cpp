// Neither a page nor node sends any.
#include "services/stray_signals.h"

namespace tamlo {

void IgnoreStraySignals() {}

}  // namespace tamlo
