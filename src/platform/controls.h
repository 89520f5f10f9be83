#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/form.h"

namespace platform {

/// A frame on a form, drawn over its surface inside its own rectangle; hidden at first.
class Shape {
  public:
    explicit Shape(Form& form);  ///< Of no size, its border black and 1 pixel wide.
    ~Shape();                    ///< Takes it off its form.

    struct Look {
        Place place;          ///< On the form's surface; what lies beyond it isn't seen.
        int borderWidth = 1;  ///< Pixels, from 0, from the edge inward.
        Color borderColor = 0;
        bool visible = false;
    };

    const Look& look() const { return look_; }
    void setBorder(int width, Color color) { show({look_.place, width, color, look_.visible}); }
    void setPlace(const Place& place) { show({place, look_.borderWidth, look_.borderColor, look_.visible}); }
    void setVisible(bool visible) { show({look_.place, look_.borderWidth, look_.borderColor, visible}); }

    struct Impl;

  private:
    void show(const Look& look);

    std::unique_ptr<Impl> impl_;
    Look look_;
};

/// A line of text on a form, drawn over its surface and centred in its height; empty at first. It takes no clicks, and
/// it isn't seen while the player is away.
class Label {
  public:
    Label(Form& form, const Place& place);  ///< On the form's surface; what lies beyond its place isn't seen.
    ~Label();                               ///< Takes it off its form.

    void setLook(const Font& font, Color color);  ///< Of its text.
    void setText(const std::string& text);        ///< UTF-8.
    std::string text() const;                     ///< As it was set last.

    struct Impl;

  private:
    std::unique_ptr<Impl> impl_;
};

/// The look of an edge: none, sunken or raised.
enum class Bevel { None, Inset, Raised };
/// Where a caption stands in its width.
enum class Align { Left, Center, Right };
/// What a panel does with a caption that doesn't fit: cuts it, breaks it at blanks and takes the height of its lines,
/// from its top downward, or takes the width of its one line, from its left to the right.
enum class Fit { Cut, Height, Width };

/// How a panel looks, on light grey: its bevels, from the edge inward, and its caption, centred in the height.
struct PanelLook {
    Bevel outer = Bevel::None;
    Bevel inner = Bevel::None;
    int bevelWidth = 1;  ///< Of each bevel, in pixels.
    Color fore = 0;
    Align align = Align::Center;
    Fit fit = Fit::Cut;
    int closer = 0;  ///< Pixels by which the words of the caption stand closer together than its font has them.
};

/// A 3-D panel with a caption; it can hold other controls.
class Panel {
  public:
    Panel(Form& form, const Place& place);    ///< On the form's surface, with no caption.
    Panel(Panel& panel, const Place& place);  ///< On another panel, which must live as long.
    ~Panel();                                 ///< Takes it off its form.
    Panel(Panel&&) noexcept;                  ///< Afterwards the other object may only be destroyed.

    void setLook(const PanelLook& look);       ///< Bevels, colours and where the caption stands.
    void setFont(const Font& font);            ///< Of its caption.
    void setCaption(const std::string& text);  ///< UTF-8; what reaches beyond the bevels isn't seen.
    std::string caption() const;               ///< As it was set last; empty at first.

    struct Impl;
    Impl& impl() { return *impl_; }  ///< For the other classes of the same back end.

  private:
    std::unique_ptr<Impl> impl_;
};

/// What all controls have in common that can have the focus. The form on top gives its keys to the control with the
/// focus, after its own handlers; the focus stays within the form. When the form opens, its first control in tab order
/// gets the focus. Up, Down, Left and Right move it on from a button; Tab and Shift+Tab from any control.
class Control {
  public:
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    std::function<void()> onGotFocus;  ///< The focus has come to it.
    std::function<void()> onValidate;  ///< The focus goes from it to another control of its form.
    /// A key with a character, as the form's onKeyPress, which comes before: setting it to 0 swallows the key, another
    /// character of Latin-1 takes its place. What is composed, with dead keys or by an input method, comes to both a
    /// character at a time as if it were typed; text that is pasted doesn't.
    std::function<void(int& character)> onKeyPress;
    /// A key was let go that had been pressed in the same form; also after each character that was composed.
    std::function<void(int keyCode)> onKeyUp;

    void setFont(const Font& font);  ///< Of its text.
    void setEnabled(bool enabled);   ///< Without it the control is grey and takes neither clicks nor the focus.
    bool enabled() const;            ///< True at first.
    void setFocus();                 ///< Gives it its form's focus. Nothing while it is disabled.
    bool hasFocus() const;           ///< Whether keys of its form go to it.
    void setTabIndex(int index);     ///< Its place in the tab order, from 0; those from there on move back by one.
    int tabIndex() const;            ///< In the order of making, until it is set.
    void setAccessibleName(const std::string& name);  ///< What a screen reader says, where its caption isn't enough.

    struct Impl;
    Impl& impl() const { return *impl_; }  ///< For the other classes of the same back end.

  protected:
    explicit Control(std::unique_ptr<Impl> impl);
    ~Control();  ///< Takes it off its form, also in its own handlers.

    std::unique_ptr<Impl> impl_;
};

/// What all controls have in common that are pressed: by a click, by Space and by Alt with their access key. They have
/// the focus then.
class CaptionButton : public Control {
  public:
    std::function<void()> onClick;  ///< It was pressed, by a key that is held once.

    void setCaption(const std::string& text);  ///< One line of UTF-8; "&" stands before the access key.

  protected:
    explicit CaptionButton(std::unique_ptr<Impl> impl);
};

/// A 3-D push button with its caption in the middle; Enter on it presses it too.
class CommandButton : public CaptionButton {
  public:
    CommandButton(Panel& panel, const Place& place);  ///< On a panel, which must live as long.

    void makeDefault();  ///< Enter presses it from anywhere on the form but another command button.
    void makeCancel();   ///< Escape presses it from anywhere on the form.
};

/// Two arrows, one above the other, that repeat while held; with the focus, the Up and Down keys and the pad's do so.
class SpinButton : public Control {
  public:
    SpinButton(Panel& panel, const Place& place);  ///< On a panel, which must live as long.

    std::function<void()> onSpinUp;    ///< Once for each press and repeat of the upper arrow or the Up key.
    std::function<void()> onSpinDown;  ///< Once for each press and repeat of the lower arrow or the Down key.
};

}  // namespace platform
