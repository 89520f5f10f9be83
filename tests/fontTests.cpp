// The lettering of what Qt shows by itself, on a desktop that has no fonts at all; that of the game stands in
// tests/seen.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontInfo>
#include <QMenu>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QToolTip>
#include <cstdlib>
#include <iostream>
#include <map>

#include "platform/form.h"
#include "platform/help.h"
#include "platform/qt/window/fonts.h"
#include "tests/application.h"
#include "tests/printService.h"

namespace {

QWidget* helpText() {
    static platform::Form form;
    platform::WinHelpA(form, "", platform::HELP_INDEX, 0);
    QWidget* text = nullptr;
    for (const QWidget* window : QApplication::topLevelWidgets())
        if (text == nullptr) text = window->findChild<QTextBrowser*>();
    return text;
}

TEST(DesktopFontDeathTest, IsTheProgramsOwnWhereTheDesktopHasNone) {
    const std::map<const char*, QWidget* (*)()> windows = {
        {"a menu", []() -> QWidget* { return new QMenu; }},
        {"a message box", []() -> QWidget* { return new QMessageBox; }},
        {"a tool-tip", []() -> QWidget* { return QToolTip::showText({}, "Tip"), QApplication::topLevelWidgets()[0]; }},
        {"the help", helpText},
    };
    const QTemporaryDir folder;
    qputenv("FONTCONFIG_FILE", withoutFonts(folder.path()).toLocal8Bit());
    // Each in a process of its own, since the first window sees to all that follow.
    const auto familyIn = [](QWidget* (*make)(), bool lettered) {
        setUpApplication();
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
