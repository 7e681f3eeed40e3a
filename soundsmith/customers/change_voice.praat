# Makes another person of a voice: formants, pitch, melody and pace.
form Change a voice
  sentence From
  sentence To
  positive Lowest_pitch
  positive Highest_pitch
  positive Formants
  real Pitch
  positive Melody
  positive Pace
endform
# Otherwise every run shuffles the voiceless parts in another way.
random_initializeWithSeedUnsafelyButPredictably (4711)
Read from file: from$
Change gender: lowest_pitch, highest_pitch, formants, pitch, melody, pace
Scale peak: 0.7
Save as WAV file: to$
