// The readers, and inputs that are as they should be or as bad as they can be.

#include <algorithm>
#include <utility>

#include "tools/fuzz/target.h"

namespace fuzz {
namespace {

std::string repeated(const std::string& part, size_t bytes) {
    std::string text;
    while (text.size() < bytes) text += part;
    return text;
}

std::vector<std::string> scoreFiles() {
    std::string table;
    for (const char row : {5, 4, 3, 2, 1}) table += "Ann Other " + std::string{row, 0, 2, 1, 0, row, 1, 0};
    return {table, table.substr(0, 33), ""};
}

std::vector<std::string> commandLines() { return {"--zoom\n1.5", "--zoom\n8", "--help", "--version", ""}; }

/// The game's own text, its chapters, and what takes the longest to set.
std::vector<std::string> helpTexts() {
    constexpr size_t many = 4000;  // bytes
    const std::string text = asset("ZQT.hlp");
    std::vector<std::string> texts = {text};
    for (size_t from = 0, to = 0; from < text.size(); from = to) {
        to = std::min(text.find("\n## ", from + 1), text.size());
        texts.push_back(text.substr(from, to - from));
    }
    for (const char* const part : {"x", "word ", "\xC3\xA4", "*x* ", "- x\n", "> x\n", "#### x\n\n"})
        texts.push_back(repeated(part, many));
    texts.push_back("|x|x|x|x|\n|---|---|---|---|\n" + repeated("x\n", many));
    return texts;
}

const std::string everyKey = [] {
    std::string keys;
    for (char key = ' '; key <= '~'; ++key) keys += key;
    return keys;
}();

// In the scripts 1 pastes what follows, 2 composes it, 3 is the Tab key, and 9 types again.
std::vector<std::string> nameScripts() {
    return {everyKey,
            "\x01"
            "a\fb\x7F"
            "c\n",
            "\x02\xC3\xA9t\xC3\xA9", "\xC3\x84"};
}

std::vector<std::string> orderScripts() {
    constexpr int stops = 10;  // of Tab, behind which the buttons come
    std::string typed, pasted;
    for (int stop = 0; stop < stops; ++stop) {
        typed += "\t" + everyKey + "\x03";
        pasted +=
            "\x01"
            "12345678\f9" +
            everyKey + "\x03";
    }
    return {typed, pasted};
}

std::vector<std::string> pieces() {
    const std::string piece = asset("sounds/mendel1.mid");
    return {piece, piece.substr(0, 600)};
}

/// Waves of all codings that there are, of as many channels as bytes of a sample.
std::vector<std::string> waveFiles() {
    const std::string thunder = asset("sounds/Thunder2.wav"), samples = thunder.substr(44, 1000);
    std::vector<std::string> files = {thunder, thunder.substr(0, 3000), thunder.substr(0, 44)};
    for (const auto& [coding, bits] :
         {std::pair(1, 8), {1, 16}, {1, 24}, {1, 32}, {2, 4}, {3, 32}, {6, 8}, {7, 8}, {17, 4}}) {
        std::string head = thunder.substr(0, 44);
        head[20] = static_cast<char>(coding);
        head[22] = head[32] = static_cast<char>(std::max(1, bits / 8));
        head[34] = static_cast<char>(bits);
        files.push_back(head + samples);
    }
    constexpr size_t rateAt = 24;
    files.push_back(thunder.substr(0, 1000).replace(rateAt, 4, {1, 0, 0, 0}));  // one a second
    return files;
}

}  // namespace

const std::vector<Target> targets = {
    {"score", 500, scoreFiles, {"\xFF\xFF\xFF\x7F", {"\0\0\0\x80", 4}, "Ann", "\x80\x9F\xFF", " "}, takeScores},
    {"commandLine",
     5000,
     commandLines,
     {"--zoom", "\n", "--help", "--version", ".25", "-", "0x", "e1", "inf", "nan", "9", "1", "+", " "},
     takeCommandLine},
    {"help",
     10,
     helpTexts,
     {"|",        "|---|---|\n",      "\n```\n",          "\n~~~\n",    "\n> ", "\n- ", "\n1. ",   "\n# ",
      "\n\n",     "![](tiles:c1,b2)", "![](icon:1)",      "[x](#keys)", "**",   "`",    "<table>", "&#0;",
      "\xC2\xA0", "\xE2\x80\xA8",     "\xF0\x9F\x80\x84", "x"},
     takeHelp},
    {"name",
     30,
     nameScripts,
     {"\1", "\2", "\4", "\5", "\6", "\7", "\x08", "\t", "\f", "\xF0\x9F\x80\x84", "\xC3\x84", "e\xCC\x81", "a", "\x7F"},
     takeName},
    {"order",
     15,
     orderScripts,
     {"\1", "\2", "\3", "\4", "\5", "\6", "\7", "\x08", "\t", "9", "0", "1e9", "-1", "\xF0\x9F\x80\x84", "\xC3\x84",
      "A"},
     takeOrder},
    {"piece",
     150,
     pieces,
     {"MThd",
      "MTrk",
      {"\0\0\0\6", 4},
      "\xFF\x2F",
      {"\xFF\x51\3\0\0\0", 6},
      "\xF0\x7F",
      "\xC0",
      "\x90\x40\x7F",
      "\xB0\7"},
     takePiece},
    {"thunder",
     150,
     waveFiles,
     {"RIFF",
      "WAVE",
      "fmt ",
      "data",
      "fact",
      "smpl",
      "LIST",
      "\xFE\xFF",
      {"\1\0", 2},
      {"\3\0", 2},
      {"\x20\0", 2},
      {"\x08\0", 2},
      {"\0\0\xC0\x7F", 4}},
     takeThunder},
};

}  // namespace fuzz
