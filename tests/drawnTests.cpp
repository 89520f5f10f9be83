// What texts, captions and frames look like where the back end draws them; edges and frames are told in tests/seen.

#include <QImage>
#include <QPainter>
#include <QTest>
#include <QWidget>

#include "platform/controls.h"
#include "platform/qt/controls/control.h"
#include "tests/contractFixture.h"

namespace {

using namespace platform;

/// The bounds of what isn't of the ground's colour, from the picture's left and top, and how many pixels.
struct Ink {
    int left = 1000, top = 1000, right = -1, count = 0;
    bool isRed = true;
};

template <class ColourAt>
Ink inkOf(int width, int height, QRgb ground, ColourAt colourAt) {
    Ink ink;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const QRgb colour = colourAt(x, y) & 0xFFFFFF;
            if (colour == ground) continue;
            ink.left = std::min(ink.left, x);
            ink.top = std::min(ink.top, y);
            ink.right = std::max(ink.right, x);
            ++ink.count;
            ink.isRed = ink.isRed && qRed(colour) > qBlue(colour) && qBlue(colour) == qGreen(colour);
        }
    return ink;
}

Ink printed(const Font& font, const std::string& text, int x, int y) {
    const std::vector<uint32_t> white(120 * 60, 0xFFFFFFFF);
    Surface surface(Picture{120, 60, white.data()});
    surface.font = font;
    surface.foreColor = 0x0000FF;
    surface.currentX = x;
    surface.currentY = y;
    surface.print(text);
    return inkOf(120, 60, 0xFFFFFF, [&](int column, int row) { return *(surface.row(row) + column); });
}

class Drawn : public Contract {
  protected:
    Drawn() { showMain(); }

    QImage seen(const QRect& place) {
        return qt::windowOf(main_->form)->grab(place).toImage().convertToFormat(QImage::Format_RGB32);
    }
};

TEST_F(Drawn, ATextStartsAtItsPlaceInItsFont) {
    constexpr int overhang = 4;  // pixels by which a slanted letter may lean out of its width
    for (const char* name : {"Times New Roman", "Courier New", "Wonton ICG", "No Such Font"}) {
        SCOPED_TRACE(name);
        const Font plain{name, 12, false}, bold{name, 12, true};
        Surface surface;
        surface.font = plain;
        const Ink ink = printed(plain, "HE", 20, 15);
        EXPECT_GT(ink.count, 20);
        EXPECT_NEAR(ink.left, 22, 3);
        EXPECT_GT(ink.right, 20 + surface.textWidth("H"));
        EXPECT_LE(ink.right, 20 + surface.textWidth("HE") + overhang);
        EXPECT_NEAR(ink.top, 20, 5);
        EXPECT_TRUE(ink.isRed);
        EXPECT_GT(printed(bold, "HE", 20, 15).count, ink.count);
        EXPECT_EQ(printed(plain, "", 20, 15).count, 0);
    }
}

TEST_F(Drawn, ATextIsCutToItsSurface) {
    const Font font{"Times New Roman", 24, true};
    struct {
        int x, y;
        bool seen;
    } const rows[] = {{-10, -8, true}, {110, 40, true}, {200, 10, false}, {10, -200, false}, {-2000, 10, false}};
    for (const auto& row : rows) EXPECT_EQ(printed(font, "Wonton", row.x, row.y).count > 0, row.seen) << row.x;
}

TEST_F(Drawn, ACaptionStandsWhereItsLookSaysInItsColour) {
    struct {
        Align align;
        double points;
        int left, right;  // of its letters, from the panel's left
    } const rows[] = {
        {Align::Left, 20, 1, 58}, {Align::Right, 20, 60, 118}, {Align::Center, 20, 31, 88}, {Align::Left, 10, 1, 29}};
    Panel panel(main_->form, {20, 30, 120, 40});
    panel.setCaption("HEH");
    Shape hidden(main_->form);  // as long as nobody shows it
    hidden.setPlace({20, 30, 120, 40});
    for (const auto& row : rows) {
        panel.setFont({"Times New Roman", row.points, true});
        panel.setLook({Bevel::None, Bevel::None, 1, 0x0000FF, row.align});
        const QImage image = seen({20, 30, 120, 40});
        const Ink ink = inkOf(120, 40, 0xC0C0C0, [&](int x, int y) { return image.pixel(x, y); });
        EXPECT_NEAR(ink.left, row.left, 4);
        EXPECT_NEAR(ink.right, row.right, 4);
        EXPECT_TRUE(ink.isRed);
    }
}

TEST_F(Drawn, ACaptionHigherThanItsPanelLosesItsTopAndLeavesTheBevels) {
    constexpr int bevel = 2, room = 20 - 2 * bevel;
    PanelLook look{Bevel::Raised, Bevel::None, bevel, 0x0000FF, Align::Left, Fit::Height};
    Panel high(main_->form, {20, 30, 100, 0}), low(main_->form, {20, 90, 100, 20});
    for (Panel* const panel : {&high, &low}) {
        panel->setLook(look);
        panel->setFont({"Times New Roman", 20, true});
        look.fit = Fit::Cut;
    }
    high.setCaption("\u00C9gy");
    const QRect grown = high.impl().face->geometry();
    EXPECT_GT(grown.height(), 25);
    QImage expected = seen({20, 90, 100, 20});
    QPainter(&expected).drawImage(0, bevel, seen({20, grown.bottom() + 1 - bevel - room, 100, room}));
    low.setCaption("\u00C9gy");
    EXPECT_EQ(seen({20, 90, 100, 20}), expected);
}

TEST_F(Drawn, AnArrowThatThePointerHoldsGoesOn) {
    Panel panel(main_->form, {20, 30, 100, 60});
    SpinButton spin(panel, {10, 10, 25, 41});
    std::string spun;
    spin.onSpinUp = [&] { spun += '+'; };
    spin.onSpinDown = [&] {
        if ((spun += '-').size() == 3) driver::buttonUp(40, 75);
    };
    driver::buttonDown(40, 75);
    EXPECT_TRUE(QTest::qWaitFor([&] { return spun.size() == 3; }, 10000));
    QTest::qWait(500);
    EXPECT_EQ(spun, "---") << "until it lets go";
}

}  // namespace
