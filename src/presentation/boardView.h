#pragma once

struct frmMain;

/// Keeps what lies under the next tile. Call before anything is drawn.
void gsKeepNextTileGround(frmMain& m);

/// Paints the whole table anew if the pictures have another density than when it was painted last, so that what was
/// enlarged is crisp again. Call between two tiles, or with the falling one erased, and with no lightning over it.
void gsPaintAtNewDensity(frmMain& m);
