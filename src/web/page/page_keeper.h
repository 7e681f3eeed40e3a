// The player's files last in the page's database.
#pragma once

#include "web/files/kept_files.h"

namespace tamlo {

/// For the game's thread, which sleeps while the page works.
class PageKeeper final : public Keeper {
  public:
    bool Keep(const std::vector<Change>& changes) override;
};

}  // namespace tamlo
