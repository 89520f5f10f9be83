#include "tools/selfplay/referee.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <span>
#include <stdexcept>

#include "hiscores/frmGetName.h"
#include "hiscores/frmHiScore.h"
#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "match/frmRoundsSetting.h"
#include "platform/desktop.h"
#include "play/frmChooseTiles.h"
#include "presentation/hints.h"
#include "scoring/frmBreakDown.h"

namespace selfplay {
namespace {

constexpr int suitKinds = Books::suitKinds, lastSuited = Books::lastSuited, lastHonour = Books::lastHonour;
constexpr int firstWind = lastSuited + 1, firstHonourNumber = 10;
constexpr int entryPoint[] = {40, 24};    // pixels, of row 0 and column 1
constexpr int tilePitch[] = {30, 39};     // pixels
constexpr int scorePoint[] = {454, 237};  // pixels
constexpr double quietSeconds = 60;
constexpr double rounding = 0.5;  // seconds; the game counts whole ones
constexpr double hundred = 100, halfHundredth = 0.00501;

/// Whether a face is the one that belongs to its kind.
bool isTrueFace(const TileKind& tile, int kind) {
    const bool suited = kind >= 1 && kind <= lastSuited;
    const bool bonus = kind > lastHonour;
    const int number = suited               ? (kind - 1) % suitKinds + 1
                       : kind == 0 || bonus ? 0
                                            : kind - firstWind + firstHonourNumber;
    return tile.KindIdx == kind && tile.Number == number && tile.Suit == (suited ? (kind - 1) / suitKinds + 1 : 0) &&
           tile.Bonus == (bonus ? kind - lastHonour : 0);
}

void require(bool holds, const char* otherwise) {
    if (!holds) throw std::logic_error(otherwise);
}

bool shows(const CellInfo& place, int kind) { return place.Filled == (kind != 0) && isTrueFace(place.Tile, kind); }

// What has to be alike

void compareTile(const frmMain& game, const Books& books) {
    require(game.mintTilesDropped == books.drawn, "the tiles that came in are miscounted");
    require(game.mintCurRow == books.row, "the tile is in another row");
    require(game.mintCurCol == books.column, "the tile is over another column");
    require(game.mintCurTile == books.tile, "another tile falls than the order says");
    require(game.Timer1.interval() == books.pace, "the tile has another speed");
    require(game.Timer1.enabled() == books.falls, "the tile falls and should be held, or is held and should fall");
    require(game.mblnDropKeyUsed == books.dropped, "the drop key was used or not, and the game has it otherwise");
    require(game.mblnInTimerTick == books.busy, "a tick keeps the others out for longer than it lasts, or shorter");
    require(game.mlngHandNumber == books.hand, "a hand begins while another is open");
}

void compareBoard(const frmMain& game, const Books& books) {
    for (int column = 1; column <= Books::columns; ++column) {
        require(shows(game.CellTable[0][column], 0), "a tile rests in row 0");
        for (int row = 1; row <= Books::rows; ++row)
            require(shows(game.CellTable[row][column], books.board[row][column]),
                    "a place of the board shows another tile than the one that lies there");
    }
}

void compareOrder(const frmMain& game, const Books& books) {
    for (int position = 1; position <= Books::tiles; ++position)
        require(game.TileOrder[position] == books.order[position], "the order of the tiles has changed");
}

/// The sets stand in the order of taking; once the hand is complete the pair stands behind them.
void compareEarned(const frmMain& game, const Books& books) {
    const int earned = static_cast<int>(books.earned.size());
    const int bonus = static_cast<int>(books.bonus.size());
    for (int i = 0; i < handTiles; ++i)
        require(shows(game.EarnedTiles[i + 1], i < earned ? books.earned[i] : 0), "an earned tile isn't in its slot");
    for (int i = 0; i < slotCount - handTiles; ++i)
        require(shows(game.EarnedTiles[handTiles + 1 + i], i < bonus ? books.bonus[i] : 0),
                "a flower or season isn't in its slot");
}

void compareHand(const frmMain& game, const Books& books) {
    const int earned = static_cast<int>(books.earned.size());
    const int bonus = static_cast<int>(books.bonus.size());
    require(game.mintHandCount == earned, "the count of hand tiles is wrong");
    require(game.mintEarnedCount == earned, "the count of earned tiles is wrong");
    require(game.mintBonusCount == bonus, "the count of bonus tiles is wrong");
    require(game.mblnPairTaken == books.hasPair(), "the pair is there or isn't, and the game has it otherwise");
    require(game.mintPairSlot == books.pairSlot, "the pair's slot is wrong");
    require(game.mintDoubles == books.worth.doubles, "the hand's doubles are miscounted");
    require(glngHandPoints == books.worth.points, "the hand's points are miscounted");
    std::string_view rest = gstrScoreDesc;
    for (const auto& item : books.worth.items) {
        require(rest.substr(0, item.text.size()) == item.text, "the hand's items are others");
        rest.remove_prefix(std::min(rest.size(), item.text.size() + 1));
    }
    require(rest.empty(), "the hand has too many items");
}

void compareMatch(const frmMain& game, const Books& books) {
    require(game.mblnGameRunning == books.running, "a match runs, or has ended, and the game has it otherwise");
    require(game.mlngScore == books.score, "the score isn't the sum of what was earned");
    require(game.mlngSeat == books.seat || gfrmChooseSeat.isOpen(), "the player's seat has changed");
    require(game.mintGamesPlayed == books.games, "the hands are miscounted");
    require(game.mintGamesWon == books.won, "the hands won are miscounted");
    require(game.mlngHouse == books.house, "the House is on the wrong seat");
    require(game.mintHouseMoves == books.houseMoves, "the moves of the House are miscounted");
    require(game.mintRoundsPlayed == books.rounds, "the rounds are miscounted");
    require(game.mlngRoundWind == books.wind, "the wind of the round is wrong");
}

void compareOptions(const frmMain& game, const Books& books) {
    require(game.mlngLevel == books.level, "the Level has changed");
    require(game.mblnBreakDown == books.breakDown, "the break-down was switched");
    require(game.mblnMusicOn == books.music, "the music was switched");
    require(game.mblnRoundInChinese == books.chinese, "the language of the markers was switched");
    require(game.mblnPeek == books.peek, "the next tile was switched");
}

/// Where the back end writes texts down.
void compareScore(const frmMain& game, const Books& books) {
    const auto& texts = game.picWork.texts;
    if (books.hand == 0 || texts.empty()) return;
    const auto isScore = [](const auto& text) { return text.left == scorePoint[0] && text.top == scorePoint[1]; };
    const auto found = std::find_if(texts.rbegin(), texts.rend(), isScore);
    require(found != texts.rend() && found->text == std::to_string(books.score), "another score stands on the table");
}

void compareOffer(const frmMain& game, const Books& books) {
    if (!gfrmChooseTiles.isOpen()) {
        require(books.landing || game.mintPossibleCount == 0, "candidates are left without an offer");
        return;
    }
    const frmChooseTiles& chooser = *gfrmChooseTiles.hold();
    const int offered = static_cast<int>(books.offer.size());
    require(offered > 0, "an offer was made of nothing");
    require(game.mintPossibleCount == offered && chooser.mintNumEntries == offered + 1, "other sets are offered");
    require(chooser.mintCurEntry >= 1 && chooser.mintCurEntry <= chooser.mintNumEntries, "no entry is highlighted");
    for (int i = 1; i <= offered; ++i) {
        const Window& set = books.offer[i - 1];
        require(chooser.maintRows[i] == set.row && chooser.maintCols[i] == set.column, "a set is offered elsewhere");
        for (int j = 1; j <= setTiles; ++j)
            require(shows(PossibleTiles[i][j], j <= set.tiles ? books.board[set.row][set.column + j - 1] : 0),
                    "an offer shows other tiles than the board");
    }
    require(chooser.Shape1.look().visible, "the offer has no frame");
    require(chooser.shpOnBoard.look().visible == (chooser.mintCurEntry <= offered),
            "the set on the board has no frame");
    if (chooser.mintCurEntry > offered) return;
    const Window& set = books.offer[chooser.mintCurEntry - 1];
    constexpr int border = 3;
    const platform::Place place{entryPoint[0] + tilePitch[0] * (set.column - 1) - border,
                                entryPoint[1] + tilePitch[1] * set.row - border, tilePitch[0] * set.tiles + 2 * border,
                                tilePitch[1] + 2 * border};
    require(chooser.shpOnBoard.look().place == place, "the frame on the board is round other tiles");
}

}  // namespace

template <class Comparison>
void Referee::attempt(const Comparison& comparison) {
    if (!objection_.empty()) return;
    try {
        comparison();
    } catch (const std::logic_error& complaint) {
        objection_ = complaint.what() + (" (hand " + std::to_string(game_.mlngHandNumber)) + ", tile " +
                     std::to_string(game_.mintTilesDropped) + ")";
    }
}

Referee::ScoreTable Referee::shownTable() {
    ScoreTable table{};
    for (int row = 1; row <= static_cast<int>(table.size()); ++row)
        table[row - 1] = {gaudtHiScore[row].lngScore, gaudtHiScore[row].intRounds, gaudtHiScore[row].intLevel};
    return table;
}

Referee::Referee(frmMain& game)
    : game_(game),
      onTick_(game.Timer1.onTick),
      onKeyDown_(game.form.onKeyDown),
      onButtonClick_(game.tbrZQT.onButtonClick),
      onLevel_(game.mnuLevel.onClick),
      hint_(hint::startAnew) {
    books_.level = game.mlngLevel;
    books_.roundsWanted = gintNumRounds;
    books_.breakDown = game.mblnBreakDown;
    books_.music = game.mblnMusicOn;
    books_.chinese = game.mblnRoundInChinese;
    books_.peek = game.mblnPeek;
    if (gblnfHiScoreFileIsThere() && gblnfReadHiScoreFile()) table_ = shownTable();
    game.Timer1.onTick = [this] { tick(); };
    game.form.onKeyDown = [this](int& code) { key(code); };
    game.tbrZQT.onButtonClick = [this](int button) { command(button); };
    game.mnuLevel.onClick = [this](int item) {
        onLevel_(item);
        books_.level = item;
        lookAtAll();
    };
}

Referee::~Referee() {
    game_.Timer1.onTick = onTick_;
    game_.form.onKeyDown = onKeyDown_;
    game_.tbrZQT.onButtonClick = onButtonClick_;
    game_.mnuLevel.onClick = onLevel_;
}

void Referee::look() {
    follow();
    attempt([this] { compareDialogs(); });
}

/// The same with all that a handler may have changed, once it is over.
void Referee::lookAtAll() {
    look();
    attempt([this] {
        for (const auto compare : {compareTile, compareHand, compareMatch, compareOptions, compareScore})
            compare(game_, books_);
        if (isAsCompared()) return;
        for (const auto compare : {compareBoard, compareOrder, compareEarned}) compare(game_, books_);
    });
}

/// The line on the table tells that from now on, until something else is told.
void Referee::tell(const char* hint) {
    hint_ = hint;
    hintPasses_ = false;
}

// What happens

void Referee::tick() {
    follow();
    const uint32_t hand = books_.hand;
    const Tick tick = books_.beginTick();
    matchEnds_ = tick == Tick::MatchEnds;
    highlighted_ = 0;
    offerSeen_ = breakDownSeen_ = summarySeen_ = nameAsked_ = scoreEntered_ = tableSeen_ = false;
    onTick_();
    attempt([&] {
        if (books_.hand == hand)
            endTick(tick);
        else
            books_.busy = false;  // A new match has begun inside it.
    });
    matchEnds_ = false;
    lookAtAll();
}

void Referee::endTick(Tick tick) {
    followAll();
    require(books_.offer.empty(), "a landing is over, and its offer wasn't made or what was chosen wasn't taken");
    if (tick == Tick::Lands && offerSeen_) hint_ = hint::none;
    if (tick == Tick::MatchEnds) {
        require(summarySeen_, "a match has ended without a summary");
        require(nameAsked_ == belongsInTable() || scoreEntered_, "a high score was forgotten");
        require(scoreEntered_ == tableSeen_, "the table wasn't shown");
        hint_ = hint::startAnew;
        hintPasses_ = false;
    }
    if (tick == Tick::HandEnds) {
        const bool isWon = books_.earned.size() == Books::fullHand;
        require(breakDownSeen_ == (isWon && books_.breakDown), "the break-down is due and wasn't shown, or isn't");
        if (!isWon) hint_ = books_.row == 1 ? hint::lostAtLastTile : hint::lostAtEntry;
        hintPasses_ = !isWon || hintPasses_;
        beginHand();
    }
    books_.endTick(tick);
}

void Referee::beginHand() {
    require(game_.mlngHandNumber == books_.hand + 1, "a hand is miscounted");
    std::array<int, Books::tiles + 1> order{};
    std::array<bool, Books::tiles + 1> isThere{};
    for (int position = 1; position <= Books::tiles; ++position) {
        const int tile = game_.TileOrder[position];
        require(tile >= 1 && tile <= Books::tiles && !isThere[tile], "a tile is lost or doubled");
        isThere[tile] = true;
        order[position] = tile;
    }
    books_.beginHand(game_.mlngHandNumber, order);
    quietSince_ = platform::secondsOfDay();
}

void Referee::key(int code) {
    follow();
    const bool repeats = game_.form.keyRepeats();
    const bool endsStrike = books_.falls;
    onKeyDown_(code);
    attempt([&] {
        namespace is = platform::key;
        if (code == is::Left || code == is::Pad4) books_.steer(-1);
        if (code == is::Right || code == is::Pad6) books_.steer(1);
        if ((code == is::Down || code == is::Pad2) && !repeats) books_.drop();
        require(!endsStrike || !(game_.mblnLightningDue || game_.mblnLightningShown), "a key leaves a strike standing");
    });
    lookAtAll();
}

void Referee::command(int button) {
    follow();
    const bool holds = button == Button::HighScores || button == Button::Order || button == Button::About;
    if (button == Button::StartAnew || button == Button::Stop || (holds && books_.running)) books_.falls = false;
    if (button == Button::StartAnew) tell(hint::none);
    onButtonClick_(button);
    attempt([&] { carryOut(button); });
    lookAtAll();
}

void Referee::carryOut(int button) {
    switch (button) {
        case Button::StartAnew:
            require(game_.mlngSeat == seatToDraw_, "the player has another seat than the one drawn");
            books_.beginMatch(seatToDraw_);
            return beginHand();
        case Button::BreakDown:
            books_.breakDown = !books_.breakDown;
            return;
        case Button::Music:
            books_.music = !books_.music;
            return;
        case Button::Round:
            books_.chinese = !books_.chinese;
            return;
        case Button::Peek:
            books_.peek = !books_.peek;
            return;
        case Button::Pause:
            if (!books_.running) return;
            books_.falls = !books_.falls;
            return tell(books_.falls ? hint::none : hint::paused);
        case Button::Stop:
            if (books_.running) tell(hint::stopped);
            return;
        case Button::HighScores:
        case Button::Order:
        case Button::About:
            if (!books_.running) return;
            books_.falls = true;
            return tell(hint::none);
        default:
            return;
    }
}

// What is seen of dialogs, and what their answers bring

void Referee::follow() {
    attempt([this] { followAll(); });
}

void Referee::followAll() {
    followOffer();
    followRounds();
    followEnd();
    followLightning();
    if (gfrmChooseSeat.isOpen())
        seatToDraw_ = gfrmChooseSeat->malngSeatTiles[gfrmChooseSeat->mintSelTile] - firstWind + 1;
    if (hintPasses_ && game_.lblHint.text() == hint::none) tell(hint::none);
}

/// The entry that was highlighted when the chooser was last seen is the answer, once it is gone.
void Referee::followOffer() {
    if (books_.offer.empty()) return;
    const bool isTaken = game_.mintEarnedCount != static_cast<int>(books_.earned.size()) ||
                         game_.mintBonusCount != static_cast<int>(books_.bonus.size());
    const int pass = static_cast<int>(books_.offer.size()) + 1;
    if (isTaken) {
        require(highlighted_ > 0 && highlighted_ < pass, "a set was taken that nobody has chosen");
        books_.take(books_.offer[highlighted_ - 1]);
        highlighted_ = 0;
    } else if (!gfrmChooseTiles.isOpen() && highlighted_ == pass) {
        books_.decline();
    }
    if (gfrmChooseTiles.isOpen()) {
        offerSeen_ = true;
        highlighted_ = gfrmChooseTiles->mintCurEntry;
        tell(hint::offer);
    }
}

void Referee::followRounds() {
    if (gintNumRounds != books_.roundsWanted) {
        require(gintNumRounds == roundsToSet_, "the rounds of a match have changed by themselves");
        books_.roundsWanted = gintNumRounds;
    }
    roundsToSet_ = gfrmRoundsSetting.isOpen() ? gfrmRoundsSetting->mintNewRounds : 0;
}

/// No strike comes before the pause is over, which counts from the strike that was painted last.
void Referee::followLightning() {
    const bool strikes = game_.mblnLightningDue || game_.mblnLightningShown;
    if (!strikes && !strikes_ && !isDue_) return;
    const double now = platform::secondsOfDay();
    require(!strikes || strikes_ || now >= quietSince_ + quietSeconds - rounding, "lightning strikes too soon");
    if ((isDue_ && !game_.mblnLightningDue) || (game_.mblnLightningShown && !strikes_)) quietSince_ = now;
    strikes_ = strikes;
    isDue_ = game_.mblnLightningDue;
}

void Referee::followEnd() {
    breakDownSeen_ = breakDownSeen_ || gfrmBreakDown.isOpen();
    summarySeen_ = summarySeen_ || gfrmGameSummary.isOpen();
    nameAsked_ = nameAsked_ || gfrmGetName.isOpen();
    if (!gfrmHiScore.isOpen() || !matchEnds_) return;
    tableSeen_ = true;
    if (!scoreEntered_) enterScore();
}

/// A file that was damaged may hold anything, in any order.
Referee::ScoreTable::const_iterator Referee::rowForScore() const {
    return std::find_if(table_.begin(), table_.end(), [&](const Score& row) { return row.points < books_.score; });
}

bool Referee::belongsInTable() const { return books_.score != 0 && rowForScore() != table_.end(); }

void Referee::enterScore() {
    require(nameAsked_ && belongsInTable(), "a score enters the table that is too low, or nobody's");
    const auto row = table_.begin() + (rowForScore() - table_.begin());
    std::move_backward(row, table_.end() - 1, table_.end());
    *row = {books_.score, books_.rounds, books_.level};
    scoreEntered_ = true;
}

void Referee::compareDialogs() const {
    compareOffer(game_, books_);
    compareTable();
    compareShown();
    compareHint();
}

/// Whether no tile has changed its place since the last comparison, here and there. It costs less than to compare all.
bool Referee::isAsCompared() {
    const std::span<const std::byte> parts[] = {std::as_bytes(std::span(&game_.CellTable, 1)),
                                                std::as_bytes(std::span(&game_.EarnedTiles, 1)),
                                                std::as_bytes(std::span(&game_.TileOrder, 1))};
    size_t at = 0;
    bool isSame = comparedVersion_ == books_.version;
    for (const auto& part : parts) {
        compared_.resize(std::max(compared_.size(), at + part.size()));
        isSame = isSame && std::memcmp(part.data(), compared_.data() + at, part.size()) == 0;
        if (!isSame) std::memcpy(compared_.data() + at, part.data(), part.size());
        at += part.size();
    }
    comparedVersion_ = books_.version;
    return isSame;
}

void Referee::compareTable() const {
    require(!gfrmHiScore.isOpen() || shownTable() == table_, "the table of high scores is another one");
}

/// The dialogs that come by themselves.
void Referee::compareShown() const {
    require(!gfrmBreakDown.isOpen() || books_.earned.size() == Books::fullHand, "a break-down comes of itself");
    require(!gfrmGetName.isOpen() || (matchEnds_ && gfrmGetName->mlngHiScore == books_.score),
            "the name is asked for another score");
    require(!gfrmGameSummary.isOpen() || matchEnds_, "a summary comes of itself");
    if (gfrmGameSummary.isOpen()) {
        const auto& shown = gfrmGameSummary->pnlGameSummary;
        require(shown[0].caption() == std::to_string(books_.rounds) &&
                    shown[1].caption() == std::to_string(books_.games) &&
                    shown[2].caption() == std::to_string(books_.won),
                "the summary shows other counts");
        require(std::abs(std::stod(shown[3].caption()) - hundred * books_.won / books_.games) < halfHundredth,
                "the summary shows another percentage");
    }
}

void Referee::compareHint() const {
    if (books_.landing && !gfrmChooseTiles.isOpen()) return;  // It is on its way out.
    require(game_.lblHint.text() == hint_, "the line on the table tells something else");
}

}  // namespace selfplay
