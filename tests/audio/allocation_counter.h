// Counts what a thread allocates and frees: for tests of code that must do neither.
#pragma once

namespace tamlo {

/// Allocations and releases by operator new and delete on the calling thread so far.
long AllocationsOfThisThread();

}  // namespace tamlo
