#pragma once

#include <QSizeF>

class QKeyEvent;
class QWheelEvent;
class QWidget;
class QWindow;

/// How many times as large as on its screen's own scale everything of the program is shown: windows, dialogs, menus and
/// fonts alike, so that a pixel of the game stays a pixel of its widgets.
namespace platform::qt {

/// The largest zoom with which a window has room, both in pixels at a zoom of 1: in quarters, from the least on.
double largestZoom(const QSizeF& window, const QSizeF& room, double least);

/// The least one that a window may need: on a screen that is scaled so much that it has no room at a zoom of 1, a zoom
/// below that, as long as a pixel of the game still fills one of the screen's. Else 1.
double leastZoom(const QWidget& window);

/// The largest whole zoom with which it leaves a tenth of the room free in height and width; at least 1.
double startZoom(const QSizeF& window, const QSizeF& room);

double zoom();  ///< Now; 1 at first.

/// Changes it at once. Windows on the screen keep their size in the game's pixels, and their middle where they can be
/// seen whole there.
void setZoom(double zoom);

void askForZoom(double zoom);            ///< What openAtZoom() will take; 0 for the one that suits the screen.
void openAtZoom(const QWidget& window);  ///< A window that isn't on the screen yet; nothing if none was asked for.

bool isWayland();  ///< Whether the desktop is one of Wayland.

/// Tells the desktop the limits of a window's size, which are in the screen's pixels there. A size beyond them that the
/// desktop gives it all the same is taken: Wayland ends a program that doesn't take the size it is maximised to.
void renewLimits(QWindow& window, const QSize& least, const QSize& most);

/// Gives a window on the screen its size in the screen's pixels again.
void fitToZoom(QWidget& window);

/// The size of a window as the desktop has it, in pixels at a zoom of 1.
QSizeF sizeOnScreen(const QWidget& window);

/// What a key or a turn of the wheel means for the zoom.
enum class ZoomStep { None, Smaller, Larger, Back };
ZoomStep zoomStepOf(const QKeyEvent& key);
ZoomStep zoomStepOf(const QWheelEvent& wheel);  ///< Small turns count together.

/// Takes a step, of a quarter or back to the zoom of the start, within what the window's screen takes.
void takeZoomStep(const QWidget& window, ZoomStep step);

}  // namespace platform::qt
