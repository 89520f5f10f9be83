#pragma once

#include "platform/toolbar.h"

/// The buttons of the toolbar by their numbers, as the platform counts them.
namespace Button {
enum Number : int {
    StartAnew = 1,
    Level,
    BreakDown,
    Music,
    HighScores,
    RoundsSetting,
    Round,
    Peek,
    Pause,
    Stop,
    Order,
    About,
    Help,
    Gap,  ///< No button to press: it takes up the free width.
    Exit,
};
}

constexpr int toolbarButtons = Button::Exit;

/// The number of a button's image, from 1: they stand in the order of the buttons, and the gap has none, 0.
constexpr int gintfButtonImage(int button) {
    if (button == Button::Gap) return 0;
    return button < Button::Gap ? button : button - 1;
}

/// The images of the buttons; an empty strip if the program doesn't carry them.
platform::ImageList ImageList1();
