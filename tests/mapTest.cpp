// The map in frmMain.h tells the truth: each procedure stands under the file where it lives, in that file's order.

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <regex>
#include <string>
#include <vector>

namespace {

std::ifstream source(const std::string& file) { return std::ifstream(VELMORA_SOURCE "/src/" + file); }

TEST(Map, EveryProcedureLivesWhereTheMapHasIt) {
    const std::regex heading(R"(    // ((?:\w+/)?\w+\.cpp): .*)");
    const std::regex declaration(R"(    (?:\[\[noreturn\]\] )?[\w:]+ (\w+)\(.*)");
    const std::regex definition(R"(^[\w:]+ frmMain::(\w+)\(.*)");
    std::map<std::string, std::vector<std::string>> map;
    std::string file;
    std::smatch match;
    auto header = source("frmMain.h");
    for (std::string line; std::getline(header, line);)
        if (std::regex_match(line, match, heading))
            file = match[1];
        else if (!file.empty() && std::regex_match(line, match, declaration))
            map[file].push_back(match[1]);
    EXPECT_GE(map.size(), 9u);
    for (const auto& [name, procedures] : map) {
        std::vector<std::string> defined;
        auto text = source(name);
        for (std::string line; std::getline(text, line);)
            if (std::regex_match(line, match, definition)) defined.push_back(match[1]);
        EXPECT_EQ(defined, procedures) << name;
    }
}

}  // namespace
