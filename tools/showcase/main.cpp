// Plays on the real window by its keys, takes pictures of it at telling moments, and ends when it has them all.

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdio>

#include "frmMain.h"
#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "platform/qt/application.h"
#include "play/frmChooseTiles.h"
#include "scoring/frmBreakDown.h"
#include "tools/selfplay/advice.h"

namespace {

constexpr int lookEvery = 4;      // milliseconds
constexpr int wellIntoAHand = 8;  // hand tiles
constexpr int wellOnItsWay = 6;   // the row of a tile in mid-air
constexpr int wellFilled = 14;    // tiles on the board
constexpr int goodChoice = 3;     // entries of a chooser
constexpr int goodHand = 3;       // scoring items

int tilesOnBoard(const frmMain& game) {
    int tiles = 0;
    for (const auto& row : game.CellTable)
        for (const CellInfo& place : row) tiles += place.Filled ? 1 : 0;
    return tiles;
}

bool promising(const frmMain& game) {
    return game.mintHandCount >= wellIntoAHand && game.mintBonusCount > 0 && tilesOnBoard(game) >= wellFilled;
}

struct Moment {
    const char* name;
    bool (*hasCome)(const frmMain& game);
    bool taken;
};

Moment moments[] = {
    {"table", [](const frmMain& game) { return promising(game) && game.mintCurRow == wellOnItsWay; }, false},
    {"chooser",
     [](const frmMain& game) {
         return gfrmChooseTiles.isOpen() && gfrmChooseTiles->mintNumEntries >= goodChoice && game.mintHandCount > 0;
     },
     false},
    {"breakdown",
     [](const frmMain&) {
         return gfrmBreakDown.isOpen() && std::count(gstrScoreDesc.begin(), gstrScoreDesc.end(), ',') >= goodHand - 1;
     },
     false},
};

constexpr int tableMoment = 0;

class Showcase {
  public:
    Showcase(QWidget* window, QString folder) : window_(window), folder_(std::move(folder)) {}

    void look() {
        const auto game = gfrmMain.hold();
        bool allTaken = true;
        for (Moment& moment : moments) {
            if (!moment.taken && moment.hasCome(*game)) take(moment);
            allTaken = allTaken && moment.taken;
        }
        if (allTaken) std::_Exit(0);
        QTimer::singleShot(0, [this] { act(); });  // Outside of this look, which goes on while a key is at work.
    }

  private:
    void take(Moment& moment) {
        const QString path = folder_ + '/' + moment.name + ".png";
        if (!window_->grab().toImage().convertToFormat(QImage::Format_RGB888).save(path)) {
            std::fprintf(stderr, "velmora_showcase: can't write %s\n", qPrintable(path));
            std::_Exit(1);
        }
        std::puts(qPrintable(path));
        std::fflush(stdout);
        moment.taken = true;
    }

    void press(Qt::Key key, int times = 1) {
        for (int i = 0; i < times; ++i) QTest::keyClick(window_, key);
    }

    void act() {
        const frmMain& game = *gfrmMain.hold();
        if (gfrmChooseTiles.isOpen()) {
            press(Qt::Key_Right, static_cast<int>(selfplay::bestOfferOf(game, *gfrmChooseTiles.hold())));
            press(Qt::Key_Return);
        } else if (gfrmChooseSeat.isOpen() || gfrmBreakDown.isOpen() || gfrmGameSummary.isOpen()) {
            press(Qt::Key_Return);
        } else if (game.mintCurRow == 1 && game.Timer1.interval() != dropInterval) {
            const int steps = selfplay::bestColumnOf(game) - game.mintCurCol;
            press(steps < 0 ? Qt::Key_Left : Qt::Key_Right, std::abs(steps));
            const bool fallsSlowly = !moments[tableMoment].taken && promising(game);
            if (!fallsSlowly) press(Qt::Key_Down);
        }
    }

    QWidget* window_;
    QString folder_;
};

}  // namespace

int main(int argc, char** argv) {
    platform::Application application(argc, argv, "Velmora", "velmora");
    if (argc != 2) {
        std::fprintf(stderr, "usage: velmora_showcase FOLDER\n");
        return 2;
    }
    const auto game = gfrmMain.hold();
    game->form.show();
    QTimer::singleShot(0, [&] { game->tbrZQT_ButtonClick(Button::StartAnew); });
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto isMain = [](const QWidget* widget) { return widget->windowTitle() == "Velmora"; };
    Showcase showcase(*std::find_if(windows.begin(), windows.end(), isMain), argv[1]);
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, [&] { showcase.look(); });
    clock.start(lookEvery);
    return application.run();
}
