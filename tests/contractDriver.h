#pragma once

#include <functional>
#include <string>

namespace platform {
class Control;
}

/// The person and the clock in the tests that both back ends keep: a simulated desktop's or Qt's.
namespace driver {

void begin();                                                       ///< A desktop with nothing on it.
void run(double milliseconds);                                      ///< Lets that time pass, with all its events.
void post(double afterMilliseconds, std::function<void()> action);  ///< An event to come.
void pressKey(int keyCode);                                         ///< Down and up; codes as in platform::key.
void keyDown(int keyCode);                                          ///< Down, or a repeat if it is held.
void keyUp(int keyCode);
void click(const platform::Control& control);  ///< With the pointer on it.
/// The pointer, in pixels from the corner of the form on top, and its left button.
void movePointer(int x, int y);
void buttonDown(int x, int y);
void buttonUp(int x, int y);
void clickToolButton(int button);
void goAway();                  ///< The keyboard goes to a window of another program.
void comeBack();                ///< And to the main window again.
void chooseMenuItem(int item);  ///< Of the menu that the next pop-up opens; 0 leaves it.
std::string lastMessage();      ///< "title: text" of the last message box; each is answered at once.

}  // namespace driver
