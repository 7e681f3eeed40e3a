#include "web/page/page_calls.h"

#include <emscripten/threading.h>

#include <limits>

namespace tamlo {

std::int32_t AwaitAnswer(PageAnswer& answer) {
    while (answer == 0) {
        emscripten_futex_wait(&answer, 0, std::numeric_limits<double>::infinity());
    }
    return answer;
}

}  // namespace tamlo
