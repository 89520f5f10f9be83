#include "frmMain.h"
#include "presentation/layout.h"
#include "toolkit/failures.h"

namespace {

constexpr const char* seatNames[] = {"East", "South", "West", "North"};
static_assert(std::size(seatNames) == seatCount);

constexpr int16_t movesPerRound = 4;

/// The seat or wind after this one; a value outside 1 to 4 stays.
int32_t next(int32_t seat) { return seat >= 1 && seat <= seatCount ? seat % seatCount + 1 : seat; }

}  // namespace

void frmMain::msAssignSeatPsns() {
    guarded("msAssignSeatPsns", [&] {
        for (int seat = 1; seat <= seatCount; ++seat) {
            mastrSeatName[seat] = rowOf(seatNames, seat);
            maudtSeatPsn[seat] = rowOf(seatPlaces, seat).name;
            maudtHousePsn[seat] = rowOf(seatPlaces, seat).marker;
        }
    });
}

void frmMain::msUpdateHouse(bool won) {
    guarded("msUpdateHouse", [&] {
        if (won && mlngHouse == mlngSeat) return;
        msMoveHouse();
        ++mintHouseMoves;
    });
}

void frmMain::msMoveHouse() {
    guarded("msMoveHouse", [&] { mlngHouse = next(mlngHouse); });
}

void frmMain::msUpdateRound() {
    guarded("msUpdateRound", [&] {
        if (mintHouseMoves != movesPerRound || next(mlngRoundWind) == mlngRoundWind) return;
        mlngRoundWind = next(mlngRoundWind);
        msDrawRound();
        mintHouseMoves = 0;
        mintRoundsPlayed = narrow16(mintRoundsPlayed + 1);
    });
}
