#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "frmMain.h"
#include "tools/selfplay/books.h"

namespace selfplay {

/// Sits at a game, hears every tick, key and command, and compares what comes of it with books of its own.
class Referee {
  public:
    /// Watches the game from now on, before its first match; it has to outlive the referee, and nobody else may take
    /// the place of its handlers meanwhile.
    explicit Referee(frmMain& game);
    ~Referee();
    Referee(const Referee&) = delete;
    Referee& operator=(const Referee&) = delete;

    /// Compares the open dialogs. To be called before each thing that a person does, so that what a dialog shows has
    /// been seen before it is answered. After each tick, key and command everything is compared anyway.
    void look();

    /// What was wrong first, with the hand and the tile; empty while all is well. Nothing is compared from then on.
    const std::string& objection() const { return objection_; }

  private:
    struct Score {
        int64_t points;
        int rounds, level;
        bool operator==(const Score&) const = default;
    };
    using ScoreTable = std::array<Score, 5>;  ///< The best first.

    void tick();
    void key(int code);
    void command(int button);
    void carryOut(int button);
    void endTick(Tick tick);
    void beginHand();

    void lookAtAll();

    /// Runs that and keeps the first thing to which it objects.
    template <class Comparison>
    void attempt(const Comparison& comparison);
    void tell(const char* hint);

    void follow();
    void followAll();
    void followOffer();
    void followRounds();
    void followEnd();
    void followLightning();
    void enterScore();
    static ScoreTable shownTable();
    ScoreTable::const_iterator rowForScore() const;
    bool belongsInTable() const;

    void compareDialogs() const;
    bool isAsCompared();
    void compareTable() const;
    void compareShown() const;
    void compareHint() const;

    frmMain& game_;
    Books books_;
    std::string objection_;
    std::vector<std::byte> compared_;  ///< The game's tiles at the last comparison that found them right,
    int comparedVersion_ = -1;         ///< and the books' at it.

    // The game's own handlers
    std::function<void()> onTick_;
    std::function<void(int& code)> onKeyDown_;
    std::function<void(int button)> onButtonClick_;
    std::function<void(int item)> onLevel_;

    // What was seen of dialogs while they were open
    int highlighted_ = 0;  ///< Entry of the tile chooser; 0 until it is seen.
    int seatToDraw_ = 0;   ///< Under the frame of the draw.
    int roundsToSet_ = 0;  ///< 0 while the dialog isn't open.
    bool offerSeen_ = false, breakDownSeen_ = false, summarySeen_ = false, nameAsked_ = false, scoreEntered_ = false,
         tableSeen_ = false;
    bool matchEnds_ = false;  ///< A tick ends it just now.

    ScoreTable table_{};       ///< Of high scores.
    const char* hint_;         ///< The line on the table.
    bool hintPasses_ = false;  ///< It goes by itself.
    bool isDue_ = false, strikes_ = false;
    double quietSince_ = 0;  ///< Second of the day from which the pause of the lightning counts.
};

}  // namespace selfplay
