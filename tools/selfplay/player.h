#pragma once

#include <cstdint>
#include <random>

namespace selfplay {

/// What the built-in player does on a desktop. Each returns when whatever it has opened is closed again.
class Hands {
  public:
    virtual ~Hands() = default;
    virtual void press(int keyCode) const = 0;     ///< Down and up; a key of platform::key.
    virtual void click(int toolButton) const = 0;  ///< A button of the toolbar.
};

/// Plays the game on any desktop, by the keys, and looks at no more than a player can see: steers the tiles, chooses
/// among candidates, draws a seat and closes what the game shows.
class Player {
  public:
    /// How often, in 100 times, something is done otherwise than it is best.
    struct Manner {
        int careless = 0;  ///< A tile is dropped anywhere, or any entry of an offer is taken.
        int passing = 0;   ///< An offer is passed.
        int stubborn = 0;  ///< A pair is passed as long as there is room for another set of three.
        int aimless = 0;   ///< Some key is pressed, or none, instead of all those that a tile needs.
    };

    /// The hands must live as long. The seed decides what is left to whim: which tile of the seat draw is turned over,
    /// and when the manner shows.
    Player(const Hands& hands, uint32_t seed);

    /// Does one thing, to be called again and again: deals with the dialog on top, or steers the tile that has just
    /// come in. False if there is nothing to do but let time go on.
    bool act();

    void startMatch();  ///< Presses Start Anew.
    void setManner(const Manner& manner) { manner_ = manner; }
    void setRounds(int rounds);  ///< Opens the dialog for the rounds of a match; 1 to 100 are to be set there.

  private:
    void pressTimes(int keyCode, int times) const;
    bool answerDialog();
    void drawSeat();
    void chooseTiles();
    void spinRounds() const;
    void steer();
    void fumble();
    bool happens(int timesIn100);
    int anyBelow(int count);
    int anyTile();

    const Hands& hands_;
    std::minstd_rand whim_;
    int seatTile_;  ///< To be turned over in the next draw, from 1.
    Manner manner_;
    int rounds_ = 1;  ///< To be set in the dialog.
};

}  // namespace selfplay
