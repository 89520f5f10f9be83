#pragma once

#include <cmath>
#include <functional>
#include <memory>
#include <string>

#include "platform/surface.h"

namespace platform {

constexpr double twipsPerPixel = 15;

/// The nearest whole number of pixels.
inline int toPixels(double twips) { return static_cast<int>(std::lround(twips / twipsPerPixel)); }

/// Key codes that forms look at; letters and digits have the code of their upper-case character.
namespace key {
constexpr int Tab = 9, Enter = 13, Pause = 19, Escape = 27, Space = 32;
constexpr int Left = 37, Up = 38, Right = 39, Down = 40;
constexpr int Pad2 = 98, Pad4 = 100, Pad6 = 102, Pad8 = 104;  ///< With NumLock on and off alike.
constexpr int F1 = 112, F2 = 113;
/// What onKeyPress gets for a character outside Latin-1: a code above all of Latin-1's, so that no filter takes it for
/// one of them.
constexpr int OtherCharacter = 256;
}  // namespace key

/// A window of the game: the main window, shown with show(), or a dialog, shown with showModal() as a borderless child
/// over the main window's surface. Its size is that of its surface; frame and title bar are counted nowhere.
///
/// Keys go to the form that is open on top, whatever was clicked: first to onKeyDown, then, for a key with a character,
/// to onKeyPress, then to the control with the focus: its own onKeyPress, and what it does with the key. Setting the
/// code or the character to 0 swallows the key; another character of Latin-1 takes the place of the one typed. A press
/// that began before a form opened does nothing in it until it has been let go. Alt with an access key goes to its
/// button alone. What is composed in a field goes the way of a typed character, from onKeyPress on.
class Form {
  public:
    Form();
    ~Form();  ///< Takes its window off the screen.
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    std::function<void()> onLoad;                 ///< Before the window is seen for the first time.
    std::function<void()> onActivate;             ///< It is on top now: it has opened, or the form over it has gone.
    std::function<void(int& keyCode)> onKeyDown;  ///< With repeats while the key is held: see keyRepeats().
    std::function<void(int& character)> onKeyPress;
    /// The pointer has moved to that pixel of the surface, or its left button goes down or up there; true if Enter
    /// means something there. A left click at such a place, begun while the form was on top, is a press of Enter.
    std::function<bool(int x, int y)> onPoint;
    std::function<void()> onUnload;  ///< Before the window goes; the form's owner may let go of it here.

    /// Place and size in twips on the screen, 15 to the pixel. A dialog's place counts from the main window's.
    double left() const;
    double top() const;
    double width() const;
    double height() const;
    void move(double left, double top);
    void resize(double width, double height);

    int scaleWidth() const;   ///< Width of the surface in pixels.
    int scaleHeight() const;  ///< Height of the surface in pixels.

    void setPicture(const Picture& picture);   ///< Background of the surface; gives the form the picture's size.
    void setCaption(const std::string& text);  ///< The title bar's text; of a dialog, what a screen reader says.

    /// Has a screen reader say a text, which is made only while one listens.
    void announce(const std::function<std::string()>& text);

    Surface& surface();  ///< What the window shows from the next refresh on.
    void refresh();      ///< Shows the surface.

    void show();       ///< Loads and shows the main window and returns.
    void showModal();  ///< Loads and shows a dialog and returns when it has been unloaded; timers and events go on.
    void unload();     ///< Runs onUnload and takes the window off the screen. Nothing if it isn't loaded.
    bool loaded() const;

    /// While onKeyDown runs: true for a repeat of a held key, false for its press. Two keys that mean the same, such as
    /// an arrow and the pad's, have a press each.
    bool keyRepeats() const;

    struct Impl;
    Impl& impl() { return *impl_; }  ///< For the other classes of the same back end.

  private:
    std::shared_ptr<Impl> impl_;
};

/// The main window's form; null while it isn't open.
Form* mainForm();

}  // namespace platform
