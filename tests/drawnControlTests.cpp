// What captions and frames look like where the back end draws them; bevels are told in tests/seen.

#include <QImage>
#include <QPainter>
#include <QTest>
#include <QWidget>

#include "platform/controls.h"
#include "platform/qt/controls/control.h"
#include "tests/contractFixture.h"

namespace {

using namespace platform;

constexpr QRgb red = 0xFFFF0000;

class DrawnControls : public Contract {
  protected:
    DrawnControls() { showMain(); }

    QImage seen() { return qt::windowOf(main_->form)->grab().toImage().convertToFormat(QImage::Format_RGB32); }

    /// The left-most and right-most column of a place with a red pixel, counted from its left; -1 and -1 without one.
    std::pair<int, int> redColumns(const Place& place) {
        const QImage image = seen();
        std::pair<int, int> columns(-1, -1);
        for (int x = 0; x < place.width; ++x)
            for (int y = 0; y < place.height; ++y)
                if (image.pixel(place.left + x, place.top + y) == red) {
                    if (columns.first < 0) columns.first = x;
                    columns.second = x;
                }
        return columns;
    }
};

TEST_F(DrawnControls, ACaptionStandsWhereItsLookSaysInItsColour) {
    constexpr Place place{20, 30, 120, 40};
    Panel panel(main_->form, place);
    panel.setFont({"Times New Roman", 20, true});
    panel.setCaption("HEH");
    const auto columnsWith = [&](Align align) {
        panel.setLook({Bevel::None, Bevel::None, 1, 0xC0C0C0, 0x0000FF, align});
        return redColumns(place);
    };
    const auto [leftFirst, leftLast] = columnsWith(Align::Left);
    EXPECT_GE(leftFirst, 0);
    EXPECT_LT(leftFirst, 5);
    const int inkWidth = leftLast - leftFirst;
    EXPECT_GT(inkWidth, 40);
    EXPECT_LT(inkWidth, 80);
    EXPECT_NEAR(columnsWith(Align::Right).second, 119, 5);
    EXPECT_NEAR(columnsWith(Align::Center).first, (120 - inkWidth) / 2, 5);
    panel.setFont({"Times New Roman", 10, true});
    const auto [smallFirst, smallLast] = columnsWith(Align::Left);
    EXPECT_NEAR(smallLast - smallFirst, inkWidth / 2, 6) << "half the size";
}

TEST_F(DrawnControls, ACaptionHigherThanItsPanelLosesItsTopAndLeavesTheBevels) {
    constexpr Place place{20, 90, 100, 20};
    constexpr int bevel = 2, room = place.height - 2 * bevel;
    PanelLook look{Bevel::Raised, Bevel::None, bevel, 0xC0C0C0, 0x0000FF, Align::Left, Fit::Height};
    Panel high(main_->form, {20, 30, 100, 0}), low(main_->form, place);
    for (Panel* const panel : {&high, &low}) {
        panel->setLook(look);
        panel->setFont({"Times New Roman", 20, true});
        look.fit = Fit::Cut;
    }
    high.setCaption("\u00C9gy");
    const QRect grown = high.impl().widget()->geometry();
    const int foot = grown.bottom() + 1 - bevel;
    EXPECT_GT(grown.height(), place.height + 5);
    QImage expected = seen().copy(place.left, place.top, place.width, place.height);
    QPainter(&expected).drawImage(0, bevel, seen(), 20, foot - room, place.width, room);
    low.setCaption("\u00C9gy");
    EXPECT_EQ(seen().copy(place.left, place.top, place.width, place.height), expected);
}

TEST_F(DrawnControls, AnArrowThatThePointerHoldsGoesOn) {
    Panel panel(main_->form, {20, 30, 100, 60});
    SpinButton spin(panel, {10, 10, 25, 41});
    std::string spun;
    spin.onSpinUp = [&] { spun += '+'; };
    spin.onSpinDown = [&] { spun += '-'; };
    driver::buttonDown(40, 75);
    EXPECT_TRUE(QTest::qWaitFor([&] { return spun.size() == 3; }, 10000));
    driver::buttonUp(40, 75);
    EXPECT_EQ(spun, "---");
    QTest::qWait(500);
    EXPECT_EQ(spun, "---") << "until it lets go";
}

TEST_F(DrawnControls, AFrameIsDrawnInsideItsPlace) {
    Shape frame(main_->form);
    frame.setBorder(3, 0x0000FF);
    frame.setPlace({20, 30, 60, 40});
    EXPECT_EQ(redColumns({0, 0, 200, 150}).first, -1) << "hidden at first";
    frame.setVisible(true);
    const QImage image = seen();
    const auto isRed = [&](int x, int y) { return image.pixel(x, y) == red; };
    EXPECT_TRUE(isRed(20, 30) && isRed(22, 32) && isRed(79, 69) && isRed(77, 50) && isRed(50, 67));
    EXPECT_FALSE(isRed(19, 30) || isRed(20, 29) || isRed(23, 33) || isRed(80, 69) || isRed(79, 70) || isRed(76, 66));
}

}  // namespace
