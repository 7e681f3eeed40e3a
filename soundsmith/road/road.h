// What the road throws up: the railway crossing, the services, traffic, and what walks, rolls or
// flies past.
#pragma once

#include "recipes.h"

namespace tamlo::soundsmith {

/// At the crossing.
Sound CrossingBell(Brief brief);
Sound FreightTrain(Brief brief);
Sound PassengerTrain(Brief brief);

/// The services.
Sound Ambulance(Brief brief);
Sound PoliceStop(Brief brief);

/// Traffic.
Sound OldCar(Brief brief);
Sound NearMiss(Brief brief);
Sound Truck(Brief brief);
Sound IceCreamVan(Brief brief);
Sound CityBus(Brief brief);
Sound Motorbike(Brief brief);
Sound Tram(Brief brief);
Sound SportsCar(Brief brief);

/// On wheels without an engine.
Sound Bicycle(Brief brief);
Sound Trolley(Brief brief);
Sound Skateboard(Brief brief);
Sound HorseAndCarriage(Brief brief);

/// On foot, on paws, in the air.
Sound MarchingBand(Brief brief);
Sound Jogger(Brief brief);
Sound RunningDog(Brief brief);
Sound Helicopter(Brief brief);

}  // namespace tamlo::soundsmith
