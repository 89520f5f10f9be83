#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/form.h"

namespace platform {

/// A strip of equal images side by side, with the colour that lets the button show through.
struct ImageList {
    Picture strip;
    int imageWidth = 0;  ///< Pixels.
    Color maskColor = 0;
};

constexpr int buttonWidth = 28;  ///< Pixels, of each tool button but one that is stretched.

using ButtonKeys = std::array<int, 2>;  ///< Codes as in platform::key, the one to be told first; 0 for none.

/// A toolbar across the top of a form, above its surface. Its buttons are numbered from 1; a number that no button has
/// fails with number 9. A button without an image is a gap. No button stays pressed, and a click leaves the focus where
/// it is.
///
/// F10 with no dialog open takes the form's keys to the buttons: Left and Right go from one to the next, Enter or Space
/// presses it. Escape or F10, a click and a dialog give the keys back. A key of a button's own presses it wherever a
/// click would, once however long it is held; with Ctrl or Alt it is another key. The form's handlers get none of
/// these.
class ToolBar {
  public:
    /// Height in pixels. Every button is a gap at first.
    ToolBar(Form& form, int height, int buttonCount, const ImageList& images);
    ~ToolBar();  ///< Takes it off its form, also in its own handler.

    std::function<void(int button)> onButtonClick;  ///< A button was pressed and let go again.

    /// Makes the strip as wide as its form, and the button as wide as the others leave it.
    void stretch(int button);
    void setButtonImage(int button, int image);              ///< Images are numbered from 1; 0 is none.
    void setButtonKeys(int button, const ButtonKeys& keys);  ///< None at first. A gap answers to none.
    /// UTF-8, shown with the button's first key behind it while the pointer or the keys are at it; a new one at once.
    void setToolTip(int button, const std::string& text);
    std::string toolTip(int button) const;  ///< As it was set last; empty at first.

    struct Impl;

  private:
    std::unique_ptr<Impl> impl_;
};

/// A menu that opens at the mouse pointer, or under the tool button that has the keys.
class PopupMenu {
  public:
    explicit PopupMenu(Form& form);  ///< Without items and caption.
    ~PopupMenu();                    ///< Nothing is chosen any more, even if it is open.

    std::function<void(int item)> onClick;  ///< An item was chosen.

    std::string caption;             ///< Of the whole menu, which a screen reader says, in UTF-8.
    std::vector<std::string> items;  ///< Their captions in UTF-8, from the top down. They are numbered from 1.
    int checkedItem = 0;             ///< The one with a mark; 0 for none.

    void popUp();  ///< Opens, and returns when an item was chosen or the menu was left; timers go on.

    struct Impl;

  private:
    std::unique_ptr<Impl> impl_;
};

}  // namespace platform
