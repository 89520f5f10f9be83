// What stands on the screen after each show, while the built-in player plays on the real window.

#include <gtest/gtest.h>

#include <QApplication>
#include <QBackingStore>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdlib>

#include "frmMain.h"
#include "platform/qt/window/formWindow.h"
#include "platform/qt/window/zoom.h"
#include "tests/application.h"
#include "tools/album/hands.h"
#include "tools/album/stage.h"

namespace {

constexpr int untilPainted = 15;  // milliseconds: Qt paints 5 after a change
constexpr int leastLooks = 250;
constexpr int mostLooks = 4000;
constexpr int looksAtAZoom = 7;

/// What has been painted of a window so far, as it stands on the screen.
QImage screenOf(const QWidget* window) {
    QBackingStore* const store = window->backingStore();
    return store != nullptr ? *dynamic_cast<const QImage*>(store->paintDevice()) : QImage();
}

/// Whether two images are the same but for so much in each colour.
bool areAlike(const QImage& one, const QImage& other, int difference) {
    return one.size() == other.size() &&
           std::equal(one.constBits(), one.constBits() + one.sizeInBytes(), other.constBits(),
                      [=](uchar a, uchar b) { return std::abs(a - b) <= difference; });
}

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
        const QImage seen = screenOf(window_).convertToFormat(format);
        const bool isSmoothed =
            seen.width() % window_->width() != 0;  // Which rounds a part in another way than the whole.
        const QImage whole = window_->grab().toImage().convertToFormat(format);
        ASSERT_TRUE(areAlike(seen, whole, isSmoothed ? 1 : 0)) << "at look " << looks;
        if (std::exchange(step_, step()) != step()) ++stepsAtZoom_;
        if (isSmoothed || stepsAtZoom_ < 2) return;  // The first may still be painted for the zoom before.
        if (!hands_.seesTableOnly() || gfrmMain->mintCurRow <= 0) return;
        // A tile that falls was shown last, so that the window has the whole of the work picture below the toolbar.
        for (int y = 40 * platform::density(); y < seen.height(); ++y) {
            const auto* const row = reinterpret_cast<const uint32_t*>(seen.constScanLine(y));
            ASSERT_TRUE(std::equal(row, row + seen.width(), gfrmMain->picWork.row(y))) << y << " at look " << looks;
        }
    }

    static std::pair<int, int> step() { return {gfrmMain->mintTilesDropped, gfrmMain->mintCurRow}; }

    static constexpr QImage::Format format = QImage::Format_RGB32;

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
