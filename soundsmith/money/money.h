// What the business sounds like: orders, notes and coins, and a milestone reached.
#pragma once

#include "recipes.h"

namespace tamlo::soundsmith {

Sound NewOrder(Brief brief);
Sound BankNotes(Brief brief);
Sound Coins(Brief brief);
Sound Fanfare(Brief brief);

}  // namespace tamlo::soundsmith
