#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/base/uncaught.h"
#include "platform/printer.h"
#include "platform/surface.h"

namespace platform {
class Control;
}

/// A desktop without a screen: virtual time, hands that press keys and click, a log of what a player would notice.
namespace sim {

/// Thrown through everything when the program ends its process.
struct ProcessEnded : platform::PassesHandlers {};

/// Thrown when a modal form waits and nothing is left that could happen.
struct NothingLeft : std::logic_error, platform::PassesHandlers {
    NothingLeft() : std::logic_error("a modal form waits for something that never comes") {}
};

/// A desktop as it is switched on: no form, no pending event, time at the start of the day given, random values from
/// the seed, the program in an empty folder of its own. Forms, timers and controls that were made before must be gone.
void switchOn(uint32_t seed, double secondOfDay = 36000);

/// How long each piece of music lasts, in milliseconds, 120000 until it is set; 0 if its file isn't there.
void setPieceLength(double milliseconds);
void setSoundDevice(bool present);  ///< Whether there is one; there is until it is set.
bool pieceSounds();                 ///< Whether the piece is heard now.

double now();  ///< Milliseconds of virtual time since switchOn.

/// Called with each thing that a player would notice, as a line of text; none by default.
void setLog(std::function<void(const std::string& line)> log);

/// Called once per instant of virtual time, after its events, and again if nothing else is left; they may press, click
/// or post. Never called by platform::doEvents(): what shall arrive inside it is posted. None by default.
void setHands(std::function<void()> hands);

/// Called before each event, those inside others too; none by default.
void setWitness(std::function<void()> witness);

void post(std::function<void()> action);  ///< A pending event for the next service of events.
/// The same at a later time. Of what falls due at one moment timers tick first, so that an event posted for the moment
/// of a tick arrives when that tick serves events.
void postAfter(double milliseconds, std::function<void()> action);
void runFor(double milliseconds);  ///< Lets virtual time pass with all its events.
bool step();  ///< Serves one event, or goes on to the next one in time and serves it; false if there is none.

/// What a person does; what can't be done as things stand, such as a click beside the dialog, does nothing. Each
/// arrives as an event of its own before the call returns. Key codes as in platform::key.
void pressKey(int keyCode);  ///< Down and up; a key that is held is let go before.
void keyDown(int keyCode);   ///< Down, or a repeat if it is held.
void keyUp(int keyCode);
/// Key by key, each down and up. A text box takes at its end what the handlers let through, in ASCII.
void typeText(const std::string& text);
/// A click: the control has the focus, a box is ticked or cleared, an option chosen, and the handler of a button runs.
void press(const platform::Control& control);
/// The pointer, in pixels of the surface of the form on top, and its left button.
void movePointer(int x, int y);
void buttonDown(int x, int y);
void buttonUp(int x, int y);
void clickAt(int x, int y);  ///< The pointer goes there, and the button down and up.
void clickToolButton(int button);
void chooseMenuItem(int item);  ///< Of the open menu; any other number leaves it.
void closeMainWindow();         ///< The window's own close button.
void goAway();                  ///< To another window, with the keyboard. Nothing if he is away.
void comeBack();                ///< To the form on top, as any key does too. Nothing if he isn't away.

int modalDepth();                                 ///< How many dialogs are open.
void setScreenReader(bool listens);               ///< Whether there is one; there is none until it is set.
const std::vector<std::string>& announcements();  ///< What it was given to say so far.
const std::vector<std::string>& messages();  ///< Message boxes so far, as "title: text"; each was answered at once.

/// What the printer was sent so far, the lines of each ended document.
const std::vector<std::vector<platform::PrintedLine>>& sheets();
/// Has the printer fail with number 482 from now on: at a line of each document, from 1, or 0 for none, and at its end.
void breakPrinter(int line, bool atEnd = false);

/// The main window's surface with those of the dialogs over it, and the texts on it as its list of texts. Frames,
/// panels and other controls aren't painted: they are asked for what they show.
platform::Surface screen();

}  // namespace sim
