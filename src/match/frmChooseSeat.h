#pragma once

#include <cstdint>

#include "platform/base/runtime.h"
#include "platform/controls.h"
#include "platform/form.h"
#include "play/model.h"
#include "toolkit/formRef.h"

/// The draw of the player's seat from four wind tiles that lie face down.
struct frmChooseSeat {
    frmChooseSeat();

    int16_t mprpSeat() const { return mintSeat; }  ///< The drawn seat, 1 to 4; 0 before the draw.

    platform::Form form;
    platform::Shape shpSeat{form};         // the frame around the selected tile
    int16_t mintSelTile = 0;               // the position that the frame stands on, 1 to 4
    int16_t mintSeat = 0;                  // the answer
    bool mblnDrawn = false;                // the tiles have been turned over: keys and clicks do nothing any more
    Table<PixelPoint, 1, 4> maudtTilePsn;  // the four positions
    Table<int32_t, 1, 4> malngSeatTiles;   // the wind, as a kind, at each position

    /// Lays four tiles face down, shuffled, and frames the first.
    void Form_Load();
    /// Moves the frame by the code of a key.
    void Form_KeyDown(int keyCode);
    /// Moves the frame to the tile at that point of the form; false if none is there, or they have been turned over.
    bool Form_Point(int x, int y);
    /// Draws the framed tile on Enter, shows all four for two seconds and unloads the form.
    void Form_KeyPress(int keyAscii);
    /// Places the tiles and paints their backs.
    void msLoadTiles();
    /// Deals the four winds to the positions.
    void msShuffleTiles();
    /// Paints the faces.
    void msTurnTiles();
    /// The frame's place round a tile, 1 to 4.
    platform::Place mudtfFrame(int tile) const;
    /// Lays the frame round the selected tile.
    void msPlaceFrame();
    /// The seat, 1 to 4, that the selected tile stands for.
    int16_t mintfGetSeat();
};

inline FormRef<frmChooseSeat> gfrmChooseSeat;
