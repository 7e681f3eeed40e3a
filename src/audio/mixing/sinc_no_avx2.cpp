// For processors that do not know the instructions of sinc_avx2.cpp.
#include "audio/mixing/sinc_kernel.h"

namespace tamlo::sinc {

Interpolator WideInterpolator() {
    return nullptr;
}

}  // namespace tamlo::sinc
