#include "frmMain.h"
#include "toolkit/failures.h"

namespace {

struct SeatRow {
    const char* name;
    PixelPoint namePlace;
    PixelPoint markerPlace;
};

// The House goes round against the clock: East on top, South on the left.
constexpr SeatRow seats[] = {
    {"East", {600, 272}, {615, 311}},
    {"South", {526, 320}, {599, 328}},
    {"West", {600, 366}, {615, 346}},
    {"North", {663, 320}, {634, 328}},
};
static_assert(std::size(seats) == seatCount);

constexpr int16_t movesPerRound = 4;

/// The seat or wind after this one; a value outside 1 to 4 stays.
int32_t mlngfNext(int32_t lngSeat) { return lngSeat >= 1 && lngSeat <= seatCount ? lngSeat % seatCount + 1 : lngSeat; }

}  // namespace

void frmMain::msAssignSeatPsns() {
    guarded("msAssignSeatPsns", [&] {
        for (int seat = 1; seat <= seatCount; ++seat) {
            const SeatRow& row = rowOf(seats, seat);
            mastrSeatName[seat] = row.name;
            maudtSeatPsn[seat] = row.namePlace;
            maudtHousePsn[seat] = row.markerPlace;
        }
    });
}

void frmMain::msUpdateHouse(bool blnWon) {
    guarded("msUpdateHouse", [&] {
        if (blnWon && mlngHouse == mlngSeat) return;
        msMoveHouse();
        ++mintHouseMoves;
    });
}

void frmMain::msMoveHouse() {
    guarded("msMoveHouse", [&] { mlngHouse = mlngfNext(mlngHouse); });
}

void frmMain::msUpdateRound() {
    guarded("msUpdateRound", [&] {
        if (mintHouseMoves != movesPerRound || mlngfNext(mlngRoundWind) == mlngRoundWind) return;
        mlngRoundWind = mlngfNext(mlngRoundWind);
        msDrawRound();
        mintHouseMoves = 0;
        mintRoundsPlayed = narrow16(mintRoundsPlayed + 1);
    });
}
