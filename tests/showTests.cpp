// What stands on the screen after each show, while the built-in player plays on the real window.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <cstdlib>

#include "frmMain.h"
#include "platform/qt/window/formWindow.h"
#include "platform/qt/window/zoom.h"
#include "tests/application.h"
#include "tools/album/hands.h"
#include "tools/album/screen.h"
#include "tools/album/stage.h"

namespace {

constexpr int untilPainted = 15;  // milliseconds: Qt paints 5 after a change
constexpr int leastLooks = 250;
constexpr int mostLooks = 4000;
constexpr int looksAtAZoom = 7;

class Onlooker : public QObject {
  public:
    explicit Onlooker(QWidget* window) : window_(window), hands_(window), stage_(hands_) { lookSoon(); }

    int looks = 0;

  private:
    void lookSoon() {
        QTimer::singleShot(untilPainted, this, [this] { look(); });
    }

    void look() {
        const bool enough = looks >= leastLooks && dialogs_ > 0 && strikes_ > 0 && gfrmMain->mintGamesPlayed > 0;
        if (enough || looks == mostLooks || ::testing::Test::HasFailure()) return QApplication::exit(0);
        lookSoon();  // Even if this look opens a dialog and stays in it.
        compare();
        constexpr double zooms[] = {1, 1, 1.5, 1, 1, 2};
        if (looks % looksAtAZoom == 0) {
            const double before = platform::qt::zoom();
            platform::qt::setZoom(zooms[looks / looksAtAZoom % std::size(zooms)]);
            if (platform::qt::zoom() != before) stepsAtZoom_ = 0;
        }
        stage_.act();
    }

    /// Compares what the shows so far have left on the screen with the window painted anew and whole.
    void compare() {
        ++looks;
        if (!hands_.seesTableOnly()) ++dialogs_;
        if (gfrmMain->mblnLightningShown) ++strikes_;
        gfrmMain->mlngLastLightning = -60;  // A strike may come at any time.
        const QImage seen = album::screenOf(*window_);
        const bool isSmoothed = album::isSmoothed(seen, *window_);
        ASSERT_TRUE(album::areAlike(seen, window_->grab().toImage(), isSmoothed ? 1 : 0)) << "at look " << looks;
        if (std::exchange(step_, step()) != step()) ++stepsAtZoom_;
        if (isSmoothed || stepsAtZoom_ < 2) return;  // The first may still be painted for the zoom before.
        if (!hands_.seesTableOnly() || gfrmMain->mintCurRow <= 0) return;
        // A tile that falls was shown last, so that the window has the whole of the work picture below the toolbar.
        ASSERT_EQ(album::firstRowUnlike(seen, gfrmMain->picWork), -1) << "at look " << looks;
    }

    static std::pair<int, int> step() { return {gfrmMain->mintTilesDropped, gfrmMain->mintCurRow}; }

    std::pair<int, int> step_;  // of the fall, at the last look
    int stepsAtZoom_ = 0;       // since its last change
    int dialogs_ = 0;           // looks at which something lay over the table
    int strikes_ = 0;           // looks at which lightning stood over it
    QWidget* window_;
    album::Hands hands_;
    album::Stage stage_;
};

TEST(Show, LeavesTheWholePictureOnTheScreenEachTime) {
    setUpApplication();
    const auto game = gfrmMain.hold();
    game->form.show();
    QWidget* const window = platform::qt::windowOf(game->form)->window();
    const auto* const line = window->findChild<QLabel*>();
    ASSERT_TRUE(QTest::qWaitFor([&] { return line->isVisible(); })) << "the last to come up";
    QTest::qWait(2 * untilPainted);
    Onlooker onlooker(window);
    QApplication::exec();
    EXPECT_LT(onlooker.looks, mostLooks) << "there were dialogs and lightning, and a whole hand was played";
    std::fflush(nullptr);
    std::_Exit(::testing::Test::HasFailure() ? 1 : 0);  // A dialog may still be open, with its loop below this one.
}

}  // namespace
