// The map in frmMain.h tells the truth: each procedure stands under the file where it lives, in that file's order.

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <regex>
#include <string>
#include <vector>

namespace {

const std::string source = std::string(VELMORA_SOURCE) + "/src/";

std::vector<std::string> linesOf(const std::string& file) {
    std::ifstream in(source + file);
    EXPECT_TRUE(in.good()) << file;
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

TEST(Map, EveryProcedureLivesWhereTheMapHasIt) {
    std::map<std::string, std::vector<std::string>> map;
    const std::regex heading(R"(    // ((?:\w+/)?\w+\.cpp): .*)");
    const std::regex declaration(R"(    (?:\[\[noreturn\]\] )?[\w:]+ (\w+)\(.*)");
    std::string file;
    std::smatch match;
    for (const std::string& line : linesOf("frmMain.h")) {
        if (std::regex_match(line, match, heading))
            file = match[1];
        else if (!file.empty() && std::regex_match(line, match, declaration))
            map[file].push_back(match[1]);
    }
    EXPECT_GE(map.size(), 9u);

    const std::regex definition(R"(^[\w:]+ frmMain::(\w+)\(.*)");
    for (const auto& [name, procedures] : map) {
        std::vector<std::string> defined;
        for (const std::string& line : linesOf(name))
            if (std::regex_match(line, match, definition)) defined.push_back(match[1]);
        EXPECT_EQ(defined, procedures) << name;
    }
}

}  // namespace
