#pragma once

#include <cstddef>

struct frmMain;
struct frmChooseTiles;

namespace selfplay {

/// The best column, from 1, for the tile that is falling, judged by what a player can see.
int bestColumnOf(const frmMain& game);

/// The best of the candidates in an open tile chooser, counted from 0; the number of candidates to pass.
size_t bestCandidateOf(const frmMain& game, const frmChooseTiles& dialog);

}  // namespace selfplay
