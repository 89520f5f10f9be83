#pragma once

#include <cstdint>
#include <string>

/// What plays the pieces behind MMControl, one at a time. A performance is one playing of a piece from its beginning;
/// they are numbered from 1 upward.
namespace platform::sequencer {

enum class State { Going, Ended, Failed };

/// Whether a file is there that may be a piece.
bool canOpen(const std::string& file);

/// Begins a new performance and returns its number. It ends the one before; of a piece that had come to its end the
/// last notes ring on.
uint64_t begin(const std::string& file);

/// Silences a performance where it is, or lets it go on from there. Nothing if it isn't the last one that was begun.
void setPlaying(uint64_t performance, bool playing);

/// Going until the end of the piece, also while its sound font is being loaded; Failed if it can't be heard; Ended
/// also if another one has begun since.
State stateOf(uint64_t performance);

}  // namespace platform::sequencer
