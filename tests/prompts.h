// What the game says, for tests that go through all of it: monkeys, and measurements of voices.
#pragma once

#include <array>
#include <string_view>

namespace tamlo {

/// Menu items and prompts, as they are spoken.
inline constexpr auto prompts = std::to_array<std::string_view>({
    " start game ",
    " reed instructions ",
    " reed special key instructions ",
    " change voice ",
    " adjust rate of speech ",
    " adjust volume ",
    " choose gender ",
    " delete saved game ",
    " create city streets file ",
    " edit city streets file ",
    " delete city streets file ",
    " exit game ",
    " return to the main menu. ",
    " deliver tamlo ",
    " quit for the day ",
    " check cash ",
    " options menu ",
    " turn left, west ",
    " turn right, east ",
    " go forward ",
    " turn left ",
    " turn right ",
    " return to the game ",
    " female ",
    " male ",
    " yes ",
    " no ",
    " How fast do you wish to go? ",
    " You are already going zero miles an hour.  Try again. ",
    " Do you wish to exit the game? ",
    "do you wish to use this voice",
    "to adjust the speech rate, use the arrow keys and then press enter",
    " use the up and down arrow keys to raise and lower the volume of the voice. "
    "  Press enter when you have the volume set the way that you want it. ",
    " use the up and down arrow keys to adjust the volume of the sounds. "
    "  Press enter when you have the volume set the way that you want it. ",
    " Enter the name of your city ",
    " Select the city streets file that you wish to edit. ",
    " Select the city streets file that you wish to delete. ",
    " select the city streets file to play ",
    " After saving your file and exiting Note Pad, press the space bar ",
    " Are you sure that you wish to delete the saved game? ",
    " deleting saved game ",
    " There is no saved game to delete ",
    " Enter your name as the new record holder. ",
    " game saved ",
    " getting saved game. ",
    " Which sets a new record.",
    " There was no previous record.",
    " maximum ",
    " minimum ",
});

}  // namespace tamlo
