#pragma once

#include <QObject>
#include <cstdint>
#include <cstdio>
#include <deque>
#include <memory>
#include <string>
#include <utility>

#include "frmMain.h"
#include "tools/dice.h"
#include "tools/selfplay/player.h"
#include "tools/wild/hands.h"
#include "tools/wild/ledger.h"
#include "tools/wild/whims.h"
#include "tools/wild/witness.h"

namespace wild {

/// The game from its start to its end, in hours: in some the built-in player plays and is disturbed, in others an order
/// is written, in others all is whim. It does one thing after the other in whatever loop is going on.
class Evening : public QObject {
  public:
    /// The game has just been shown in that window. The log may be null.
    Evening(uint32_t seed, QWidget& window, Ledger& ledger, std::FILE* log);

  protected:
    bool event(QEvent* event) override;

  private:
    /// The player's hands, whose keys are answered as those of others are.
    struct PlayersHands : selfplay::Hands {
        explicit PlayersHands(Evening& evening) : evening_(evening) {}
        void press(int keyCode) const override;
        void click(int toolButton) const override;
        Evening& evening_;
    };
    friend struct HourRow;
    enum class End { NotYet, Rest, LastHand, Leaves };

    void passSoon();
    void pass();
    void act();
    void nextHour();
    void tell(const std::string& action);
    void tap(const Key& key);
    void click(int toolButton);

    void play();
    void order();
    void doAnything();
    bool readScript();
    bool clearsTable();
    bool losesHand() const;
    void loseHand();
    void goOnWithMatch();
    void expectTiles();
    void letTickCome();
    void script(const std::u32string& text);
    void waitForPrinter();
    void comeToEnd();
    void comeToRest();
    void playLastHand();
    void leave();

    std::shared_ptr<frmMain> game_;
    Ledger& ledger_;
    std::FILE* log_;
    tools::Dice dice_;
    wild::Hands hands_;
    Whims whims_;
    Witness witness_;
    PlayersHands playersHands_;
    selfplay::Player player_;
    std::deque<Key> script_;
    void (Evening::*hour_)() = nullptr;
    int left_ = 0;   // passes of the hour
    int hours_ = 0;  // that are still to come
    int depth_ = 0;  // passes inside one another
    int64_t passes_ = 0;
    bool hasDisturbed_ = false;  // the printer that is at work just now
    std::pair<int, int> step_;
    End end_ = End::NotYet;
    int64_t endBegan_ = 0;             // in passes
    uint64_t matchesThen_ = 0;         // begun before the last hand
    std::pair<uint32_t, int> fallen_;  // the hand and its tiles
    int64_t fellLast_ = 0;             // in passes
};

}  // namespace wild
