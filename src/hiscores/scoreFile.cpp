#include "hiscores/scoreFile.h"

#include <utility>

#include "platform/base/files.h"
#include "platform/desktop.h"
#include "product.h"
#include "toolkit/failures.h"

namespace {

// A record of the file; its numbers are little-endian.
constexpr size_t nameAt = 0, roundsAt = 10, levelAt = 12, scoreAt = 14;
constexpr size_t recordLength = 18;
constexpr int bitsOfAByte = 8;

std::string scoreFilePath() { return platform::programFile(productFile::hiScores); }

template <class Number>
Number numberAt(const std::string& bytes, size_t at) {
    uint32_t value = 0;
    for (size_t i = 0; i < sizeof(Number); ++i)
        value |= uint32_t{static_cast<unsigned char>(bytes[at + i])} << (bitsOfAByte * i);
    return static_cast<Number>(value);
}

template <class Number>
void appendNumber(std::string& bytes, Number number) {
    for (size_t i = 0; i < sizeof(Number); ++i)
        bytes += static_cast<char>(static_cast<uint32_t>(number) >> (bitsOfAByte * i) & 0xFF);
}

HiScoreRecord recordFrom(const std::string& bytes) {
    HiScoreRecord record;
    record.strName = bytes.substr(nameAt, roundsAt);
    record.intRounds = numberAt<int16_t>(bytes, roundsAt);
    record.intLevel = numberAt<int16_t>(bytes, levelAt);
    record.lngScore = numberAt<int32_t>(bytes, scoreAt);
    return record;
}

}  // namespace

bool gblnfHiScoreFileIsThere() { return platform::isThere(scoreFilePath()); }

bool gblnfReadHiScoreFile() {
    return guarded("gblnfReadHiScoreFile", [&] {
        const platform::File file(scoreFilePath());
        for (int row = 1; row <= hiScoreRows; ++row) {
            const std::string record = file.read(recordLength, static_cast<size_t>(row - 1) * recordLength);
            gaudtHiScore[row] = record.size() == recordLength ? recordFrom(record) : HiScoreRecord{};
        }
        return true;
    });
}

void gsSaveHiScore() {
    guarded("gsSaveHiScore", [&] {
        const auto table = std::exchange(gaudtHiScore, {});  // No row is shown that could not be stored.
        std::string bytes;
        for (const HiScoreRecord& record : table) {
            std::string name = record.strName;
            name.resize(hiScoreNameLength, ' ');
            bytes += name;
            appendNumber(bytes, record.intRounds);
            appendNumber(bytes, record.intLevel);
            appendNumber(bytes, record.lngScore);
        }
        platform::File(scoreFilePath()).write(bytes);
        gaudtHiScore = table;
    });
}
