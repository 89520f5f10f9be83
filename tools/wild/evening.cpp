#include "tools/wild/evening.h"

#include <qpa/qwindowsysteminterface.h>

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <algorithm>
#include <cmath>
#include <csignal>
#include <thread>
#include <utility>

#include "forms/frmAbout.h"
#include "forms/frmOrder.h"
#include "hiscores/frmGetName.h"
#include "match/frmChooseSeat.h"
#include "platform/qt/window/formStack.h"
#include "platform/qt/window/formWindow.h"
#include "platform/shared/ticks.h"
#include "tools/wild/heldClock.h"

namespace wild {

struct HourRow {
    int weight;
    int least, most;  // passes
    void (Evening::*does)();
};

namespace {

using Now = QWindowSystemInterface::SynchronousDelivery;

constexpr int mostDepth = 60;       // dialogs and menus inside one another
constexpr int patience = 8000;      // passes until something must have come of what is done
constexpr int disturbed = 60;       // A player is disturbed once in so many times.
constexpr int closed = 1500;        // One thing in so many, where anything may be done, is to close the window.
constexpr int longestWait = 500;    // milliseconds
constexpr int looksAtPicture = 97;  // One look in so many passes.
constexpr int whileItPrints = 3;    // things done

/// A text that is dragged sets a pointer too, but another one.
bool isPrinting() {
    const QCursor* const pointer = QGuiApplication::overrideCursor();
    return pointer != nullptr && pointer->shape() == Qt::WaitCursor;
}

}  // namespace

void Evening::PlayersHands::press(int keyCode) const { evening_.tap(keyOf(keyCode)); }
void Evening::PlayersHands::click(int toolButton) const { evening_.click(toolButton); }

Evening::Evening(uint32_t seed, QWidget& window, Ledger& ledger, std::FILE* log)
    : game_(gfrmMain.hold()),
      ledger_(ledger),
      log_(log),
      dice_(seed),
      hands_(window),
      whims_{hands_, dice_, [this](const Key& key) { tap(key); }, [this](const std::string& action) { tell(action); }},
      witness_(*game_, window, ledger),
      playersHands_(*this),
      player_(playersHands_, seed),
      hours_(dice_.between(1, 4)) {
    nextHour();
    passSoon();
}

/// Even if it opens a dialog and stays in it: the next pass then comes there, when all else that is due has been done.
void Evening::passSoon() { QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::LowEventPriority); }

bool Evening::event(QEvent* event) {
    if (event->type() == QEvent::User) pass();
    return event->type() == QEvent::User;
}

void Evening::pass() {
    passSoon();
    if (isPrinting()) return waitForPrinter();
    hasDisturbed_ = false;
    ++ledger_.beats;
    ++passes_;
    if (++depth_ > mostDepth) find("dialogs and menus lie too deep in one another");
    letTimePass(1);
    witness_.look();
    const auto step = std::pair<int, int>(game_->mintTilesDropped, game_->mintCurRow);
    if (passes_ % looksAtPicture == 0 && !hands_.buttonIsDown()) witness_.lookAtPicture(step_ != step);
    act();
    step_ = {game_->mintTilesDropped, game_->mintCurRow};
    --depth_;
}

/// How long it takes is the machine's affair, so that time stands still meanwhile, and what is done is done at once.
void Evening::waitForPrinter() {
    if (std::exchange(hasDisturbed_, true)) return std::this_thread::yield();
    for (int thing = 0; thing < whileItPrints; ++thing) whims_.act();
}

void Evening::act() {
    if (end_ != End::NotYet) return comeToEnd();
    if (--left_ < 0) nextHour();
    (this->*hour_)();
}

void Evening::nextHour() {
    static constexpr HourRow rows[] = {
        {5, 2000, 8000, &Evening::play}, {4, 500, 2500, &Evening::doAnything}, {1, 100, 300, &Evening::order}};
    const HourRow& row = dice_.oneByWeight(rows);
    hour_ = row.does;
    left_ = dice_.between(row.least, row.most);
    script_.clear();
    fellLast_ = passes_;
    if (--hours_ >= 0) return;
    hour_ = &Evening::play;
    endBegan_ = passes_;
    end_ = End::Rest;
    if (dice_.oneIn(6)) leave();
}

void Evening::tell(const std::string& action) {
    witness_.lookAtGame();
    auto& line = ledger_.last[ledger_.actions++ % Ledger::linesKept];
    std::snprintf(line.data(), line.size(), "%llu at %lld ms, depth %d: %s",
                  static_cast<unsigned long long>(ledger_.actions), static_cast<long long>(timePassed()), depth_,
                  action.c_str());
    if (log_ != nullptr) std::fprintf(log_, "%s\n", line.data());
}

void Evening::tap(const Key& key) {
    tell("key " + nameOf(key));
    // The mouse may drag a text along, and a button that Space holds down takes Esc for itself.
    const bool isBusy = hands_.holds(key.key) || hands_.holds(Qt::Key_Space) || hands_.buttonIsDown();
    const Witness::Answer answer = isBusy ? Witness::Answer{} : witness_.answerTo(key);
    const int64_t before = passes_;
    hands_.tap(key);
    if (answer.from == nullptr || passes_ != before) return;
    if (!answer.came()) find(std::string("a key isn't answered by ") + answer.from);
    ++ledger_.count("keys answered");
}

void Evening::click(int toolButton) {
    tell("press button " + std::to_string(toolButton));
    hands_.click(toolButton);
}

/// The window is closed whatever is open.
void Evening::doAnything() { dice_.oneIn(closed) ? leave() : whims_.act(); }

void Evening::play() {
    if (end_ == End::NotYet && dice_.oneIn(disturbed)) return whims_.act();
    expectTiles();
    if (!clearsTable() || readScript()) return;
    if (gfrmGetName.isOpen() && gfrmGetName->txtName.text().empty() && !dice_.oneIn(6)) return script(U"Mei Ling\r");
    if (gfrmChooseSeat.isOpen() && gfrmChooseSeat->mblnDrawn) return letTimePass(100);
    player_.setManner({.passing = losesHand() ? 100 : 0});
    if (witness_.seesTableAlone() && !game_->mblnGameRunning) return goOnWithMatch();
    if (witness_.seesTableAlone() && losesHand()) return loseHand();
    const uint64_t actions = ledger_.actions;
    if (!player_.act() || ledger_.actions == actions) letTickCome();
}

/// Some hands are to be lost. If it won one in which it holds the House, the House would stay, and the match would
/// last.
bool Evening::losesHand() const {
    return end_ == End::NotYet && (game_->mlngSeat == game_->mlngHouse || game_->mlngHandNumber % 2 == 0);
}

/// Tile upon tile where they enter, so that it is over soon.
void Evening::loseHand() {
    const bool isFalling = game_->mintCurRow > 0 && game_->Timer1.enabled() && game_->Timer1.interval() != dropInterval;
    isFalling ? tap(keyOf(platform::key::Down)) : letTickCome();
}

/// Begins one of a single round, so that it comes to its end.
void Evening::goOnWithMatch() { gintNumRounds != 1 ? player_.setRounds(1) : player_.startMatch(); }

void Evening::expectTiles() {
    const auto fallen = std::pair<uint32_t, int>(game_->mlngHandNumber, game_->mintTilesDropped);
    if (std::exchange(fallen_, fallen) != fallen) fellLast_ = passes_;
    if (passes_ - fellLast_ > patience) find("no tile falls, whatever is done");
}

void Evening::letTickCome() {
    const bool isHeld = game_->mblnGameRunning && !game_->Timer1.enabled();
    if (isHeld && witness_.seesTableAlone()) return tap({Qt::Key_P, Qt::NoModifier, "p"});
    const double left = std::ceil(platform::ticks().due() - platform::clock::now());
    letTimePass(static_cast<int64_t>(std::clamp(left, 0.0, double{longestWait})));
}

bool Evening::readScript() {
    if (script_.empty()) return false;
    const Key key = script_.front();
    script_.pop_front();
    tap(key);
    return true;
}

void Evening::script(const std::u32string& text) {
    for (const char32_t character : text) script_.push_back(keyFor(character));
}

/// Deals with what the player knows nothing of, a thing at a time; true if there is none.
bool Evening::clearsTable() {
    const bool isMenu = QApplication::activePopupWidget() != nullptr;
    const auto* const main = platform::qt::formStack().mainWindow();
    const bool isOther = isMenu || (gfrmOrder.isOpen() && hour_ != &Evening::order) || gfrmAbout.isOpen() ||
                         (main->toolsHaveKeys() && main == platform::qt::formStack().top());
    if (!isMenu && !whims_.isAtRest()) {
        tell("come back");
        whims_.comeBack();
    } else if (platform::desk().boxIsOpen()) {
        tap(keyOf(platform::key::Enter));
    } else if (isOther) {
        tap(keyOf(platform::key::Escape));
    } else {
        return true;
    }
    return false;
}

void Evening::order() {
    if (dice_.oneIn(disturbed)) return whims_.act();
    if (!clearsTable() || readScript()) return;
    if (!gfrmOrder.isOpen()) return witness_.seesTableAlone() ? click(Button::Order) : play();
    script(U"Mei Ling\t1 Long Street\t\t\tSmalltown\tN\t12345\t\tmei@ling.org\t");
    script(dice_.oneIn(4) ? U"4000\t" : U"2\t");
    script(U"\t \t\t ");
    if (dice_.oneIn(2)) script(U"\x1b");
}

void Evening::comeToEnd() {
    if (passes_ - endBegan_ > patience) find("the game can't be brought to its end");
    if (end_ == End::Rest) comeToRest();
    if (end_ == End::LastHand) playLastHand();
}

/// Whatever has been done to it, the game can still be played.
void Evening::comeToRest() {
    if (depth_ > 1 || !clearsTable() || !witness_.seesTableAlone()) return play();
    end_ = End::LastHand;
    endBegan_ = passes_;
    matchesThen_ = ledger_.count("matches");
    player_.startMatch();
}

void Evening::playLastHand() {
    if (ledger_.count("matches") == matchesThen_ || game_->mintGamesPlayed == 0 || !witness_.seesTableAlone())
        return play();
    ++ledger_.count("last hands");
    leave();
}

void Evening::leave() {
    end_ = End::Leaves;
    endBegan_ = passes_;
    const int way = dice_.below(3);
    tell("leave");
    if (way == 0 && witness_.seesTableAlone() && hands_.sees(Button::Exit)) return click(Button::Exit);
    if (way == 1) std::raise(SIGTERM);
    if (way != 1) QWindowSystemInterface::handleCloseEvent<Now>(hands_.window().windowHandle());
}

}  // namespace wild
