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

/// The images of the buttons; an empty strip if the program doesn't carry them.
platform::ImageList ImageList1();
