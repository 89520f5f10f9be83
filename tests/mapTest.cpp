// The map in frmMain.h tells the truth: each procedure stands under the file where it lives, in that file's order. And
// what the documents name is there.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
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

TEST(Documents, NameFilesAndProceduresThatAreThere) {
    std::ostringstream all;  // the path of each file, and what it holds
    for (const char* folder : {"src", "tools", "tests", "art"})
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(std::string(VELMORA_SOURCE "/") + folder))
            if (std::set<std::string>{".cpp", ".h"}.contains(entry.path().extension()))
                all << entry.path().string() << '\n' << std::ifstream(entry.path()).rdbuf();
    const std::regex named(R"(`([\w/]+\.(?:cpp|h)|[a-z]+[A-Z]\w*)[`(])");
    for (const char* name : {"README.md", "docs/architecture.md", "docs/changing.md"}) {
        std::ostringstream text;
        text << std::ifstream(std::string(VELMORA_SOURCE "/") + name).rdbuf();
        const std::string document = text.str();
        for (std::sregex_iterator each(document.begin(), document.end(), named), end; each != end; ++each)
            EXPECT_NE(all.str().find((*each)[1]), std::string::npos) << name << ": " << (*each)[1];
    }
}

}  // namespace
