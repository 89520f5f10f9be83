// The lettering on a desktop that has no fonts at all.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QTemporaryDir>
#include <fstream>

#include "platform/qt/fonts.h"
#include "platform/text.h"

namespace {

/// Starts Qt with a font configuration that knows an empty folder alone.
void startWithoutFonts() {
    static const QTemporaryDir folder;
    const std::string path = folder.path().toStdString();
    std::ofstream(path + "/fonts.conf") << "<fontconfig><dir>" << path << "</dir><cachedir>" << path
                                        << "/cache</cachedir></fontconfig>";
    qputenv("FONTCONFIG_FILE", (path + "/fonts.conf").c_str());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "velmora_font_tests";
    static char* argv[] = {name, nullptr};
    new QApplication(argc, argv);  // Never deleted: at the very end Qt has let go of the fonts that it would ask for.
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
    for (const auto& row : cases) {
        ASSERT_FALSE(QFontDatabase::families().contains(row.family)) << "the desktop has it already";
        const QFontInfo info(platform::qt::letteringOf(row.font).font);
        EXPECT_EQ(info.family().toStdString(), row.family);
        EXPECT_EQ(info.bold(), row.font.bold) << row.family;
        EXPECT_NEAR(platform::measureText(row.text, row.font), row.width, 1) << row.family;
    }
}

}  // namespace
