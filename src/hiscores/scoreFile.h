#pragma once

#include <cstdint>
#include <string>

#include "platform/base/runtime.h"

constexpr int hiScoreRows = 5;
constexpr int hiScoreNameLength = 10;  ///< Characters.

/// A row of the table of high scores; one whose score is 0 has never been filled.
struct HiScoreRecord {
    std::string strName;    // in the code page, as the file holds it; blanks behind it say nothing
    int16_t intRounds = 0;  // played in the match
    int16_t intLevel = 0;   // at its end
    int32_t lngScore = 0;
};

/// The table, the best score first. It means only what the file holds: whoever looks at it reads the file before.
inline Table<HiScoreRecord, 1, hiScoreRows> gaudtHiScore;

/// True if there is anything of the score file's name in the program's folder. What can't be read as a file, such as a
/// folder, is there too: reading it then tells the player, before a name is asked for in vain.
bool gblnfHiScoreFileIsThere();

/// Fills the table from the file, which is made if it isn't there; rows that a shorter file doesn't hold are blank.
/// False if that failed, which has been reported: the table then holds the rows that were read before, and behind them
/// what it held.
bool gblnfReadHiScoreFile();

/// Writes the whole table over the file's beginning; a failure is reported, and the table is then blank, the file as
/// before, unless the disk doesn't let it be put back either.
void gsSaveHiScore();
