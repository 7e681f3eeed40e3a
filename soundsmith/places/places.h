// Where the player is: the restaurant, and four kinds of street.
#pragma once

#include "recipes.h"

namespace tamlo::soundsmith {

Sound Restaurant(Brief brief);
Sound QuietSuburb(Brief brief);
Sound Avenue(Brief brief);
Sound WindyStreet(Brief brief);
Sound Rain(Brief brief);

}  // namespace tamlo::soundsmith
