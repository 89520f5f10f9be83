#include "hiscores/scoreFile.h"

#include "platform/desktop.h"
#include "platform/files.h"
#include "toolkit/failures.h"

namespace {

// A record of the file; its numbers are little-endian.
constexpr size_t nameAt = 0, roundsAt = 10, levelAt = 12, scoreAt = 14;
constexpr size_t recordLength = 18;
constexpr size_t tableLength = hiScoreRows * recordLength;
constexpr int bitsOfAByte = 8;

std::string mstrfHiScorePath() { return platform::programFile("HiScore.dat"); }

template <class Number>
Number mfNumberAt(const std::string& strBytes, size_t at) {
    uint32_t value = 0;
    for (size_t i = 0; i < sizeof(Number); ++i)
        value |= uint32_t{static_cast<unsigned char>(strBytes[at + i])} << (bitsOfAByte * i);
    return static_cast<Number>(value);
}

template <class Number>
void msAppendNumber(std::string& strBytes, Number number) {
    for (size_t i = 0; i < sizeof(Number); ++i)
        strBytes += static_cast<char>(static_cast<uint32_t>(number) >> (bitsOfAByte * i) & 0xFF);
}

HiScoreRecord mudtfRecordFrom(const std::string& strBytes) {
    HiScoreRecord udtRecord;
    udtRecord.strName.setBytes(strBytes.substr(nameAt, roundsAt));
    udtRecord.intRounds = mfNumberAt<int16_t>(strBytes, roundsAt);
    udtRecord.intLevel = mfNumberAt<int16_t>(strBytes, levelAt);
    udtRecord.lngScore = mfNumberAt<int32_t>(strBytes, scoreAt);
    return udtRecord;
}

}  // namespace

bool gblnfHiScoreFileIsThere() { return platform::isThere(mstrfHiScorePath()); }

bool gblnfReadHiScoreFile() {
    return guarded("gblnfReadHiScoreFile", [&] {
        const std::string strBytes = platform::File(mstrfHiScorePath()).read(tableLength);
        for (int row = 1; row <= hiScoreRows; ++row) {
            const size_t at = static_cast<size_t>(row - 1) * recordLength;
            const bool blnWhole = at + recordLength <= strBytes.size();
            gaudtHiScore[row] = blnWhole ? mudtfRecordFrom(strBytes.substr(at, recordLength)) : HiScoreRecord{};
        }
        return true;
    });
}

void gsSaveHiScore() {
    guarded("gsSaveHiScore", [&] {
        std::string strBytes;
        for (const HiScoreRecord& udtRecord : gaudtHiScore) {
            strBytes += udtRecord.strName.bytes();
            msAppendNumber(strBytes, udtRecord.intRounds);
            msAppendNumber(strBytes, udtRecord.intLevel);
            msAppendNumber(strBytes, udtRecord.lngScore);
        }
        platform::File(mstrfHiScorePath()).write(strBytes);
    });
}
