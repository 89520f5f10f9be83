#pragma once

#include <QImage>
#include <array>
#include <functional>
#include <string>
#include <tuple>
#include <utility>

#include "frmMain.h"
#include "tools/selfplay/referee.h"
#include "tools/wild/hands.h"
#include "tools/wild/ledger.h"

class QMessageBox;
class QScreen;

namespace wild {

/// Notes what was wrong and ends the process.
[[noreturn]] void find(const std::string& finding);

/// Counts what the game shows, and finds what it must not.
class Witness {
  public:
    /// The game, its main window, and what it counts in; all must live as long.
    Witness(frmMain& game, QWidget& window, Ledger& ledger);

    void lookAtGame();  ///< As the referee sees it; to be called before anything is done.
    void look();        ///< Before each action, when what the one before it has closed is gone.

    /// Compares what stands on the screen with the window painted anew, and with the game's own picture if that has
    /// just been shown.
    void lookAtPicture(bool hasBeenShown);

    /// What a press of a key that isn't held must bring about, where that is plain.
    struct Answer {
        const char* from;            ///< What is on top; null where nothing is plain.
        std::function<bool()> came;  ///< Whether it has.
    };
    Answer answerTo(const Key& key) const;

    /// Nothing is open but the table, and it has the keys.
    bool seesTableAlone() const;

  private:
    void count(Sight sight) { ++ledger_.count(sight); }
    void countHands();
    void weighMemory();
    void countWhatComes();
    void lookAtBoxes();
    void lookAtFocus() const;
    void paintLinesAgain() const;
    void compareWithGame(const QImage& screen) const;
    Answer answerOfTable(Qt::Key key) const;

    const frmMain& game_;
    QWidget& window_;
    Ledger& ledger_;
    selfplay::Referee referee_;
    std::array<bool, std::size(sights)> shown_{};
    uint32_t hand_ = 0;
    int played_ = 0, won_ = 0;
    const QMessageBox* box_ = nullptr;
    double zoom_ = 1;
    int density_ = 1;
    int stepsAtDensity_ = 0;  // of the fall; the first may still be painted at the one before
    std::pair<int, int> step_;
    std::tuple<const QScreen*, double, QSize> place_;  // of the window
    int64_t placedAt_ = 0;
    decltype(place_) weighedAt_;
    int handsWeighed_ = 0;
    ptrdiff_t weight_ = 0;  // of the memory, in bytes
};

}  // namespace wild
