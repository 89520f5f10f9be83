// The table of high scores, and the words behind the program's name.

#include <cmath>
#include <fstream>
#include <sstream>

#include "commandLine.h"
#include "hiscores/scoreFile.h"
#include "platform/base/text.h"
#include "platform/desktop.h"
#include "product.h"
#include "tools/fuzz/target.h"

namespace fuzz {
namespace {

constexpr size_t recordLength = 18, nameLength = 10;

bool isPrintable(const std::string& text) {
    for (const char32_t character : platform::charactersOf(text))
        if (character < ' ' || character == 0x7F) return false;
    return true;
}

}  // namespace

std::string contentsOf(const std::string& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

std::string asset(const std::string& name) { return contentsOf(VELMORA_ASSETS "/" + name); }

std::string laid(const std::string& name, const std::string& bytes) {
    const std::string path = platform::programFile(name);
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

/// The score file. What is read and stored again is as before, but that a short table is filled up with blank rows.
bool takeScores(const std::string& file) {
    const std::string path = laid(productFile::hiScores, file);
    require(gblnfReadHiScoreFile(), "an ordinary file can be read");
    std::string expected;
    for (size_t row = 1; row <= hiScoreRows; ++row) {
        const HiScoreRecord& record = gaudtHiScore[static_cast<int>(row)];
        const bool whole = file.size() >= row * recordLength;
        expected += whole ? file.substr((row - 1) * recordLength, recordLength)
                          : std::string(nameLength, ' ') + std::string(recordLength - nameLength, '\0');
        require(whole ? record.strName.size() == nameLength : record.lngScore == 0, "a row is whole or blank");
        require(isPrintable(platform::fromCodePage(record.strName)), "a name can be shown");
    }
    if (file.size() > expected.size()) expected += file.substr(expected.size());
    gsSaveHiScore();
    require(contentsOf(path) == expected, "what was read is stored again");
    return file.size() >= recordLength;
}

/// A word in each line.
bool takeCommandLine(const std::string& lines) {
    std::vector<std::string> words = {"velmora"};
    std::istringstream in(lines);
    for (std::string word; std::getline(in, word);) words.push_back(word);
    std::vector<const char*> arguments;
    for (const std::string& word : words) arguments.push_back(word.c_str());
    const CommandLine line = read(static_cast<int>(arguments.size()), arguments.data());
    if (line.answer) {
        require(!line.answer->text.empty() && line.zoom == 0, "an answer has words, and no game behind it");
        require(line.answer->exitCode == 0 || line.answer->exitCode == 2, "an answer has one of two exit codes");
    } else {
        const bool inQuarters = std::floor(line.zoom * 4) == line.zoom * 4;
        require((line.zoom == 0) == (words.size() == 1), "a game is asked for by nothing or by a zoom");
        require(line.zoom == 0 || (line.zoom >= 1 && line.zoom <= 8 && inQuarters), "a zoom is one that there is");
    }
    return !line.answer;
}

}  // namespace fuzz
