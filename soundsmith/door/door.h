// At the customer's door: who comes to it, how it is called at, and how it opens.
#pragma once

#include "recipes.h"

namespace tamlo::soundsmith {

Sound ManWalksUp(Brief brief);
Sound WomanWalksUp(Brief brief);

Sound KnockOnWood(Brief brief);
Sound DingDong(Brief brief);
Sound Buzzer(Brief brief);
Sound Chime(Brief brief);
Sound IronKnocker(Brief brief);
Sound ImpatientFist(Brief brief);

Sound LockAndCreak(Brief brief);
Sound ChainAndBolt(Brief brief);
Sound DogBehindDoor(Brief brief);

}  // namespace tamlo::soundsmith
