#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/form.h"
#include "runtime.h"

namespace platform {

/// A strip of equal images side by side, with the colour that lets the button show through.
struct ImageList {
    Picture strip;
    int imageWidth = 0;  ///< Pixels.
    Color maskColor = 0;
};

constexpr int firstButtonWidth = 28;  ///< Pixels, of each tool button until it gets another width.

/// A toolbar across the top of a form, above its surface. Buttons count from 1; none stays pressed or takes the focus.
class ToolBar {
  public:
    ToolBar(Form& form, int height, int buttonCount, const ImageList& images);
    ~ToolBar();

    std::function<void(int button)> onButtonClick;

    void setWidth(int pixels);
    int width() const;
    int buttonCount() const;
    int buttonWidth(int button) const;
    void setButtonWidth(int button, int pixels);
    void setButtonImage(int button, int image);  ///< Images count from 1; a button with image 0 is a gap.
    void setToolTip(int button, const std::string& text);
    std::string toolTip(int button) const;

    struct Impl;

  private:
    std::unique_ptr<Impl> impl_;
};

/// A menu that opens at the mouse pointer. Items count from 1.
class PopupMenu {
  public:
    explicit PopupMenu(Form& form);
    ~PopupMenu();

    std::function<void(int item)> onClick;

    void addItem(const std::string& caption);
    int itemCount() const;
    std::string caption(int item) const;
    void setChecked(int item, bool checked);
    bool checked(int item) const;
    void popUp();  ///< Opens, and returns when an item was chosen or the menu was left; timers go on.

    struct Impl;

  private:
    struct Item {
        std::string caption;
        bool checked = false;
    };

    DynamicTable<Item> items_;
    std::unique_ptr<Impl> impl_;
};

}  // namespace platform
