// Wave files in a form that packs better.
#pragma once

#include <string>
#include <string_view>

namespace tamlo {

/// The wave file that packaging/web/make-site has folded: in the place of each 16-bit sample stands
/// how far it is from where the two before it in its channel lead, the small numbers first, whether
/// above or below; the low bytes of all come first, then the high ones. Anything else than such a
/// file is returned as it is.
std::string UnfoldedWave(std::string_view folded);

}  // namespace tamlo
