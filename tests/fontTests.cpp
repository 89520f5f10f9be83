// The lettering on a desktop that has no fonts at all.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QMenu>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QToolTip>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>

#include "platform/qt/help/helpWindow.h"
#include "platform/qt/window/fonts.h"
#include "platform/shared/text.h"
#include "tests/application.h"

namespace {

/// Starts Qt with a font configuration that knows an empty folder alone.
void startWithoutFonts() {
    static const QTemporaryDir folder;
    const std::string path = folder.path().toStdString();
    std::ofstream(path + "/fonts.conf") << "<fontconfig><dir>" << path << "</dir><cachedir>" << path
                                        << "/cache</cachedir></fontconfig>";
    qputenv("FONTCONFIG_FILE", (path + "/fonts.conf").c_str());
    setUpApplication();
}

TEST(Lettering, IsTheProgramsOwnWhereTheDesktopHasNone) {
    startWithoutFonts();
    struct {
        platform::Font font;
        const char* family;
        const char* text;
        int width;
    } const cases[] = {
        {{"Wonton ICG", 18, false}, "Kaushan Script", "Player", 64},
        {{"Times New Roman", 12, true}, "Liberation Serif", "Rounds Played", 104},
        {{"Courier New", 14, false}, "Liberation Mono", "ORDER FORM", 114},
    };
    for (const auto& row : cases)
        ASSERT_FALSE(QFontDatabase::families().contains(row.family)) << "the desktop has it already";
    for (const auto& row : cases) {
        const QFontInfo info(platform::qt::letteringOf(row.font).font);
        EXPECT_EQ(info.family().toStdString(), row.family);
        EXPECT_EQ(info.bold(), row.font.bold) << row.family;
        EXPECT_NEAR(platform::measureText(row.text, row.font), row.width, 1) << row.family;
    }
}

TEST(DesktopFontDeathTest, IsTheProgramsOwnWhereTheDesktopHasNone) {
    const std::map<const char*, QWidget* (*)()> windows = {
        {"a menu", []() -> QWidget* { return new QMenu; }},
        {"a message box", []() -> QWidget* { return new QMessageBox; }},
        {"a tool-tip", []() -> QWidget* { return QToolTip::showText({}, "Tip"), QApplication::topLevelWidgets()[0]; }},
        {"the help", []() -> QWidget* { return (new platform::qt::HelpWindow(nullptr))->findChild<QTextBrowser*>(); }},
    };
    // Each in a process of its own, since the first window sees to all that follow.
    const auto familyIn = [](QWidget* (*make)(), bool lettered) {
        startWithoutFonts();
        if (lettered) platform::qt::familyOf("Wonton ICG");
        QWidget* const window = make();
        window->ensurePolished();
        std::cerr << QFontInfo(window->font()).family().toStdString();
        std::_Exit(0);
    };
    for (const auto& [name, make] : windows)
        for (const bool lettered : {false, true})
            EXPECT_EXIT(familyIn(make, lettered), testing::ExitedWithCode(0), "Liberation Mono")
                << name << " on a table that " << (lettered ? "is" : "isn't") << " lettered";
}

}  // namespace
