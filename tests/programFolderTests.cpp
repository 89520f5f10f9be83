// The folder that the program lies in may have any name that the system allows, one that isn't UTF-8 too.

#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>
#include <QTextBrowser>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "platform/desktop.h"
#include "platform/help.h"
#include "platform/shared/sequencer.h"
#include "tests/contractFixture.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* setting = "VELMORA_TEST_FOLDER";
using ProgramFolder = Contract;

/// Passes the tests of this folder with the program lying in another one.
void passIn(const fs::path& folder) {
    fs::create_directory(folder);
    fs::copy_file("/proc/self/exe", folder / "tests");
    std::ofstream(folder / "text") << "It is read.";
    const std::string command = "'" + (folder / "tests").string() + "' --gtest_filter=ProgramFolder.*";
    EXPECT_EQ(std::system((setting + ("='" + folder.string() + "' ") + command).c_str()), 0);
    fs::remove_all(folder);
}

TEST_F(ProgramFolder, HasAnyName) {
    const char* const folder = std::getenv(setting);
    if (folder == nullptr) return passIn(fs::temp_directory_path() / ("caf\xE9" + std::to_string(getpid())));

    const std::string path = platform::programFile("text");
    EXPECT_EQ(path, std::string(folder) + "/text");
    EXPECT_TRUE(platform::sequencer::canOpen(path)) << "a piece";
    showMain();
    platform::WinHelpA(main_->form, "text", platform::HELP_INDEX, 0);
    QString read;
    for (const QWidget* window : QApplication::topLevelWidgets())
        for (const auto* text : window->findChildren<QTextBrowser*>()) read += text->toPlainText();
    EXPECT_EQ(read, QString("It is read."));
}

}  // namespace
