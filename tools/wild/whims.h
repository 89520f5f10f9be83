#pragma once

#include <functional>
#include <string>

#include "tools/dice.h"
#include "tools/wild/hands.h"

namespace wild {

/// What somebody does to the window who means nothing by it.
class Whims {
  public:
    /// All must live as long. A whole press of a key goes by that function; what is done is told to the other first.
    Whims(Hands& hands, tools::Dice& dice, std::function<void(const Key&)> tap,
          std::function<void(const std::string&)> tell);

    void act();       ///< Does one thing.
    void comeBack();  ///< Takes the hands off all keys and buttons; the main window is on the screen, with the keys.
    bool isAtRest() const;  ///< Nothing is held, and the main window has the keyboard.

  private:
    friend struct WhimRow;

    QWindow* anyWindow();
    QWidget* anyFaceOf(const QWindow& window);
    void clickOnTool();
    void clickOnFace();
    void clickAnywhere();
    void click(QWindow& window, const QPointF& at);
    void move();
    void drag();
    void turnWheel();
    void tapKey();
    void holdKey();
    void repeatKey();
    void letKeyGo();
    void typeText();
    void paste();
    void compose();
    void lookAway();
    void lookBack();
    void minimise();
    void fill();
    void resize();
    void moveWindow();
    void closeOther();
    void listen();
    void waitFor(int least, int most);  // milliseconds
    void wait() { waitFor(1, 100); }
    void waitLong() { waitFor(100, 2500); }

    Hands& hands_;
    tools::Dice& dice_;
    std::function<void(const Key&)> tap_;
    std::function<void(const std::string&)> tell_;
};

}  // namespace wild
