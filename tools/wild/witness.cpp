#include "tools/wild/witness.h"

#include <QApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>
#include <QPixmapCache>
#include <QWidget>
#include <algorithm>
#include <optional>
#include <span>

#include "forms/frmAbout.h"
#include "forms/frmOrder.h"
#include "hiscores/frmGetName.h"
#include "hiscores/frmHiScore.h"
#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "match/frmRoundsSetting.h"
#include "platform/qt/window/formStack.h"
#include "platform/qt/window/formWindow.h"
#include "platform/qt/window/frame.h"
#include "platform/qt/window/zoom.h"
#include "platform/shared/ticks.h"
#include "play/frmChooseTiles.h"
#include "scoring/frmBreakDown.h"
#include "tools/album/screen.h"
#include "tools/wild/heldClock.h"

extern "C" size_t __sanitizer_get_current_allocated_bytes();

namespace wild {
namespace {

using platform::qt::formStack;

/// The message boxes that may come, by their titles and the beginnings of their texts.
struct BoxRow {
    const char* title;
    const char* text;
    std::optional<Sight> sight = {};
};

constexpr BoxRow boxes[] = {
    {"Velmora", "No printer is set up. The sheet has been saved as\n", Sight("sheets printed")},
    {"Error In msCalcAmtDue", "Error 6 - Overflow"},  // Whoever orders thousands of copies is told so.
};

/// A window of that class that is on the screen; null if there is none.
template <class Window>
Window* seen() {
    for (QWidget* const each : QApplication::topLevelWidgets())
        if (auto* const window = qobject_cast<Window*>(each); window != nullptr && window->isVisible()) return window;
    return nullptr;
}

/// What comes and goes, and is counted when it comes.
struct ComingRow {
    Sight sight;
    bool (*isThere)(const frmMain& game);
};

constexpr ComingRow comings[] = {
    {"draws of seats", [](const frmMain&) { return gfrmChooseSeat.isOpen(); }},
    {"offers", [](const frmMain&) { return gfrmChooseTiles.isOpen(); }},
    {"break-downs", [](const frmMain&) { return gfrmBreakDown.isOpen(); }},
    {"summaries", [](const frmMain&) { return gfrmGameSummary.isOpen(); }},
    {"name dialogs", [](const frmMain&) { return gfrmGetName.isOpen(); }},
    {"views of the high scores", [](const frmMain&) { return gfrmHiScore.isOpen(); }},
    {"settings of the rounds", [](const frmMain&) { return gfrmRoundsSetting.isOpen(); }},
    {"order forms", [](const frmMain&) { return gfrmOrder.isOpen(); }},
    {"about boxes", [](const frmMain&) { return gfrmAbout.isOpen(); }},
    {"helps", [](const frmMain&) { return seen<QMainWindow>() != nullptr; }},
    {"menus of Levels",
     [](const frmMain&) { return qobject_cast<QMenu*>(QApplication::activePopupWidget()) != nullptr; }},
    {"strikes of lightning", [](const frmMain& game) { return game.mblnLightningShown; }},
    {"absences", [](const frmMain&) { return platform::ticks().isAway(); }},
    {"whole screens", [](const frmMain&) { return formStack().mainWindow()->frame()->isFullScreen(); }},
    {"other densities", [](const frmMain&) { return platform::density() != 1; }},
};

template <class Dialog>
bool isOnTop(FormRef<Dialog>& dialog) {
    return dialog.isOpen() && formStack().top() == platform::qt::windowOf(dialog->form);
}

bool boxIsOpen() { return platform::desk().boxIsOpen(); }

using Keys = std::initializer_list<Qt::Key>;

bool isAmong(const Key& key, Keys keys) { return std::ranges::find(keys, key.key) != keys.end(); }

/// The keys that close a form.
struct ClosingRow {
    const char* from;
    bool (*isOnTop)();
    Keys keys;
};

const ClosingRow closings[] = {
    {"the tile chooser", [] { return isOnTop(gfrmChooseTiles); }, {Qt::Key_Return}},
    {"the break-down", [] { return isOnTop(gfrmBreakDown); }, {Qt::Key_Return, Qt::Key_Escape}},
    {"the summary", [] { return isOnTop(gfrmGameSummary); }, {Qt::Key_Return, Qt::Key_Escape}},
    {"the name dialog", [] { return isOnTop(gfrmGetName); }, {Qt::Key_Return}},
    {"the high scores", [] { return isOnTop(gfrmHiScore); }, {Qt::Key_Return, Qt::Key_Escape}},
    {"the about box", [] { return isOnTop(gfrmAbout); }, {Qt::Key_Return, Qt::Key_Escape}},
    {"the rounds' setting", [] { return isOnTop(gfrmRoundsSetting); }, {Qt::Key_Return, Qt::Key_Escape}},
    {"the order form", [] { return isOnTop(gfrmOrder); }, {Qt::Key_Escape}},
};

/// The place so many steps on in a circle of places from 1.
int inCircle(int place, int step, int places) { return (place - 1 + step + places) % places + 1; }

/// A letter goes into the name while there is room.
Witness::Answer answerOfField(const Key& key) {
    const auto* const line = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    const bool isLetter = key.text.size() == 1 && key.text[0] >= QChar('a') && key.text[0] <= QChar('z');
    if (line == nullptr || !isLetter) return {};
    const int length = static_cast<int>(line->text().toStdU32String().size());
    if (length >= hiScoreNameLength || line->hasSelectedText()) return {};
    return {"the name's field",
            [line, length] { return static_cast<int>(line->text().toStdU32String().size()) > length; }};
}

}  // namespace

Witness::Witness(frmMain& game, QWidget& window, Ledger& ledger)
    : game_(game), window_(window), ledger_(ledger), referee_(game) {}

void Witness::lookAtGame() {
    referee_.look();
    if (!referee_.objection().empty()) find("the referee objects: " + referee_.objection());
}

void Witness::look() {
    lookAtGame();
    if (formStack().mainWindow() == nullptr) return;  // The program is about to end.
    countHands();
    countWhatComes();
    lookAtBoxes();
    lookAtFocus();
}

void Witness::countHands() {
    if (hand_ != game_.mlngHandNumber) weighMemory();
    if (std::exchange(hand_, game_.mlngHandNumber) != game_.mlngHandNumber && game_.mintGamesPlayed == 0) {
        count("matches");
        played_ = won_ = 0;
    }
    const bool hasWon = std::exchange(won_, game_.mintGamesWon) < game_.mintGamesWon;
    if (std::exchange(played_, game_.mintGamesPlayed) < game_.mintGamesPlayed)
        count(hasWon ? Sight("hands won") : Sight("hands lost"));
}

void Witness::countWhatComes() {
    for (const ComingRow& row : comings) {
        const bool isThere = row.isThere(game_);
        const bool wasThere = std::exchange(shown_[row.sight.place], isThere);
        if (isThere && !wasThere) count(row.sight);
        if (wasThere && !isThere && row.sight == Sight("name dialogs") && !gfrmGetName->mprpName().empty())
            count("names entered");
    }
    const auto step = std::pair<int, int>(game_.mintTilesDropped, game_.mintCurRow);
    if (std::exchange(step_, step) != step) ++stepsAtDensity_;
    const std::tuple place(window_.screen(), window_.devicePixelRatio(), window_.size());
    if (std::exchange(place_, place) != place) placedAt_ = timePassed();
    if (std::exchange(density_, platform::density()) != platform::density()) stepsAtDensity_ = 0;
    if (std::exchange(zoom_, platform::qt::zoom()) != platform::qt::zoom()) count("changes of zoom");
}

void Witness::lookAtBoxes() {
    const auto* const box = seen<QMessageBox>();
    if (std::exchange(box_, box) == box || box == nullptr) return;
    const auto isOfBox = [&](const BoxRow& row) {
        return box->windowTitle() == row.title && box->text().startsWith(row.text);
    };
    const auto* const row = std::find_if(std::begin(boxes), std::end(boxes), isOfBox);
    if (row == std::end(boxes))
        find("a message comes that nobody expects: " + box->windowTitle().toStdString() + ": " +
             box->text().toStdString());
    count("message boxes");
    if (row->sight) count(*row->sight);
}

/// While the main window has the keyboard, no widget may have Qt's focus that lies on a form below the one on top.
void Witness::lookAtFocus() const {
    const QWidget* const focus = QApplication::focusWidget();
    const auto* const top = formStack().top();
    if (!top->isVisible() && window_.isVisible()) find("the form on top isn't seen");
    if (focus == nullptr || focus->window() != &window_ || boxIsOpen() || focus == &window_) return;
    if (focus != top && !top->isAncestorOf(focus)) find("a form below the one on top has the focus");
}

/// Qt scrolls a text that is longer than its field to its place only when it is painted for the second time.
void Witness::paintLinesAgain() const {
    for (QLineEdit* const line : window_.findChildren<QLineEdit*>()) line->repaint();
}

void Witness::lookAtPicture(bool hasBeenShown) {
    constexpr int smoothed = 2;            // in which the roundings of a part and of the whole may differ
    constexpr int64_t untilSettled = 300;  // milliseconds, on another screen or with another size
    const bool isSeen = window_.isVisible() && !window_.isMinimized() && window_.backingStore() != nullptr;
    if (!isSeen || timePassed() - placedAt_ < untilSettled) return;
    QEvent update(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(&window_, &update);
    paintLinesAgain();
    if (window_.devicePixelRatio() != std::get<1>(place_)) return;
    const QImage screen = album::screenOf(window_);
    const bool isSmoothed = album::isSmoothed(screen, window_);
    const QImage whole = window_.grab().toImage();
    if (!album::areAlike(screen, whole, isSmoothed ? smoothed : 0)) {
        screen.save("wild-screen.png");
        whole.save("wild-whole.png");
        find("the screen, wild-screen.png here, isn't the window as it is painted anew, wild-whole.png");
    }
    count("pictures compared");
    const bool isAsDrawn = hasBeenShown && !isSmoothed && density_ == platform::density() && stepsAtDensity_ > 2;
    if (isAsDrawn && seesTableAlone() && !formStack().mainWindow()->frame()->isFilled()) compareWithGame(screen);
}

void Witness::compareWithGame(const QImage& screen) const {
    if (game_.mintCurRow <= 0 || !game_.lblHint.text().empty()) return;
    if (const int row = album::firstRowUnlike(screen, game_.picWork); row >= 0)
        find("row " + std::to_string(row) + " of the screen isn't that of the game's picture");
}

bool Witness::seesTableAlone() const {
    return !boxIsOpen() && QApplication::activePopupWidget() == nullptr &&
           formStack().top() == formStack().mainWindow();
}

Witness::Answer Witness::answerTo(const Key& key) const {
    const QWindow* const focus = QGuiApplication::focusWindow();
    const auto* const box = seen<QMessageBox>();
    const bool isOurs = focus == window_.windowHandle() || (box != nullptr && focus == box->windowHandle());
    if (!isOurs || QApplication::activePopupWidget() != nullptr || key.modifiers != Qt::NoModifier) return {};
    const int step = key.key == Qt::Key_Right ? 1 : key.key == Qt::Key_Left ? -1 : 0;
    if (boxIsOpen() && box == nullptr) return {};  // The printer is at work.
    if (boxIsOpen() && isAmong(key, {Qt::Key_Return, Qt::Key_Escape}))
        return {"a message", [] { return seen<QMessageBox>() == nullptr; }};
    if (boxIsOpen()) return {};
    if (isOnTop(gfrmChooseSeat) && !gfrmChooseSeat->mblnDrawn && step != 0)
        return {"the draw of the seat", [wanted = inCircle(gfrmChooseSeat->mintSelTile, step, seatCount)] {
                    return gfrmChooseSeat->mintSelTile == wanted;
                }};
    if (isOnTop(gfrmChooseTiles) && step != 0)
        return {"the tile chooser",
                [wanted = inCircle(gfrmChooseTiles->mintCurEntry, step, gfrmChooseTiles->mintNumEntries)] {
                    return gfrmChooseTiles->mintCurEntry == wanted;
                }};
    for (const ClosingRow& row : closings)
        if (row.isOnTop() && isAmong(key, row.keys)) return {row.from, [&row] { return !row.isOnTop(); }};
    if (isOnTop(gfrmGetName)) return answerOfField(key);
    return seesTableAlone() && !formStack().mainWindow()->toolsHaveKeys() ? answerOfTable(key.key) : Answer{};
}

Witness::Answer Witness::answerOfTable(Qt::Key key) const {
    const bool isFalling = game_.Timer1.enabled() && game_.mintCurRow >= 0 && game_.Timer1.interval() != dropInterval;
    if (!isFalling) return {};
    if (key == Qt::Key_Down) return {"the table", [this] { return game_.Timer1.interval() == dropInterval; }};
    if (key != Qt::Key_Left && key != Qt::Key_Right) return {};
    const int column = game_.mintCurCol + (key == Qt::Key_Left ? -1 : 1);
    const bool isFree = column >= 1 && column <= columnCount && !game_.CellTable[game_.mintCurRow][column].Filled;
    return {"the table", [this, wanted = isFree ? column : game_.mintCurCol] { return game_.mintCurCol == wanted; }};
}

/// Much is made once and kept, some of it by other threads, and the thunder rolls on in the machine's own time, so that
/// a single hand may leave any amount behind; but half of all hands don't.
void Witness::weighMemory() {
    constexpr int warmUp = 4;                                // hands of an evening, while music and help are loaded
    constexpr size_t least = 16;                             // hands
    constexpr ptrdiff_t muchForAHand = ptrdiff_t{64} << 10;  // bytes
    QPixmapCache::clear();
    const auto weight = static_cast<ptrdiff_t>(__sanitizer_get_current_allocated_bytes());
    const ptrdiff_t gain = weight - std::exchange(weight_, weight);
    const bool isAlike = std::exchange(weighedAt_, place_) == place_ && ++handsWeighed_ > warmUp;
    if (!isAlike || ledger_.hands == ledger_.gains.size()) return;
    ledger_.gains[ledger_.hands++] = gain;
    const auto gains = std::span(ledger_.gains).first(ledger_.hands);
    std::ranges::sort(gains);
    const ptrdiff_t median = gains[gains.size() / 2];
    if (gains.size() >= least && median > muchForAHand)
        find("most hands leave " + std::to_string(median) + " bytes or more behind");
}

}  // namespace wild
