#include "platform/sim/simulation.h"
#include "tests/contractDriver.h"

namespace driver {
namespace {

constexpr uint32_t seed = 1;

}  // namespace

void begin() { sim::switchOn(seed); }
void run(double milliseconds) { sim::runFor(milliseconds); }

void post(double afterMilliseconds, std::function<void()> action) {
    sim::postAfter(afterMilliseconds, std::move(action));
}

void pressKey(int keyCode) { sim::pressKey(keyCode); }
void keyDown(int keyCode) { sim::keyDown(keyCode); }
void keyUp(int keyCode) { sim::keyUp(keyCode); }
void click(const platform::Control& control) { sim::press(control); }
void movePointer(int x, int y) { sim::movePointer(x, y); }
void buttonDown(int x, int y) { sim::buttonDown(x, y); }
void buttonUp(int x, int y) { sim::buttonUp(x, y); }
void clickToolButton(int button) { sim::clickToolButton(button); }

void goAway() { sim::goAway(); }
void comeBack() { sim::comeBack(); }

void chooseMenuItem(int item) {
    sim::post([item] { sim::chooseMenuItem(item); });
}

std::string lastMessage() { return sim::messages().empty() ? "" : sim::messages().back(); }

}  // namespace driver
