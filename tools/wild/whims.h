#pragma once

#include <functional>
#include <string>

#include "tools/dice.h"
#include "tools/wild/hands.h"

namespace wild {

/// What somebody does to the window who means nothing by it.
struct Whims {
    Hands& hands;
    tools::Dice& dice;
    std::function<void(const Key& key)> tap;              ///< Does a whole press of a key.
    std::function<void(const std::string& action)> tell;  ///< Is told what will be done next.

    void act() const;  ///< Does one thing.
    void comeBack()
        const;  ///< Takes the hands off all keys and buttons; the main window is on the screen, with the keys.
    bool isAtRest() const;  ///< Nothing is held, and the main window has the keyboard.
};

}  // namespace wild
