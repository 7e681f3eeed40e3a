// The driver leaves the vehicle and walks up to the door, or back to it.
#include "door.h"
#include "vocabulary/car_door.h"
#include "vocabulary/room.h"
#include "vocabulary/walk.h"

namespace tamlo::soundsmith {

Sound ManWalksUp(Brief brief) {
    Sound scene = brief.Blank();
    MixAt(scene, CarDoorOpens(brief.rate, brief.chance), 0.05, 0.5);
    MixAt(scene, CarDoorShuts(brief.rate, brief.chance), 0.62, 0.75);
    AddWalk(scene, HeavyShoe(), {6, 1.25, 0.54, 0.9, 0.7}, brief.chance);
    AddRoom(scene, street_room);
    return scene;
}

Sound WomanWalksUp(Brief brief) {
    Sound scene = brief.Blank();
    MixAt(scene, CarDoorOpens(brief.rate, brief.chance), 0.05, 0.45);
    MixAt(scene, CarDoorShuts(brief.rate, brief.chance), 0.62, 0.6);
    AddWalk(scene, HighHeel(), {7, 1.2, 0.43, 0.8, 0.65}, brief.chance);
    AddRoom(scene, street_room);
    return scene;
}

}  // namespace tamlo::soundsmith
