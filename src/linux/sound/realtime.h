// Real-time priority for the thread that fills the sound card's blocks.
#pragma once

namespace tamlo {

/// Has the audio library ask the desktop's broker (rtkit) for each audio thread it makes.
/// Call it before the card is opened.
void AskForRealTime();

/// For the audio thread itself, in its first block: takes the priority where the broker has not
/// given it but the user's limits allow it; goes on without where they do not.
void TakeRealTime() noexcept;

/// Has the broker give it to a thread that has gone on without, by its number in the system;
/// returns at once.
void AskBrokerFor(int thread);

}  // namespace tamlo
