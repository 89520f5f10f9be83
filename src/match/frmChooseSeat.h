#pragma once

#include <cstdint>

#include "platform/controls.h"
#include "platform/form.h"
#include "runtime.h"
#include "toolkit/formRef.h"

/// The draw of the player's seat from four wind tiles that lie face down.
struct frmChooseSeat {
    frmChooseSeat();

    int16_t mprpSeat() const { return mintSeat; }  ///< The drawn seat, 1 to 4; 0 before the draw.

    struct Place {
        int16_t X = 0, Y = 0;  // pixels
    };

    platform::Form form;
    platform::Shape shpSeat{form};        // the frame around the selected tile
    int16_t mintSelTile = 0;              // the position that the frame stands on, 1 to 4
    int16_t mintSeat = 0;                 // the answer
    bool mblnDrawn = false;               // the tiles have been turned over: keys do nothing any more
    Table<Place, 1, 4> maudtTilePsn;      // the four positions
    Table<int32_t, 1, 4> malngSeatTiles;  // the wind, as a kind, at each position

    void Form_Load();
    void Form_KeyDown(int intKeyCode);
    void Form_KeyPress(int intKeyAscii);
    void msLoadTiles();
    void msShuffleTiles();
    void msTurnTiles();
    void msPlaceFrame();
    int16_t mintfGetSeat();
};

inline FormRef<frmChooseSeat> gfrmChooseSeat;
