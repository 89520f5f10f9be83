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

    void setBorder(int width, Color color);  ///< So many pixels, from 0, from the edge inward.
    int borderWidth() const;                 ///< Pixels.
    Color borderColor() const;               ///< As it was set last.
    void setPlace(const Place& place);       ///< On the form's surface; what lies beyond it isn't seen.
    Place place() const;                     ///< As it was set last.
    void setVisible(bool visible);           ///< Shows or hides it.
    bool visible() const;                    ///< Whether it was shown last.

    struct Impl;

  private:
    std::unique_ptr<Impl> impl_;
};

/// Whether an edge seems to lie under what is round it or above it.
enum class Bevel { None, Inset, Raised };
/// Where a caption stands in its width.
enum class Align { Left, Center };

/// How a panel looks: its bevels, from the edge inward, and its colours. Text is centred in the height.
struct PanelLook {
    Bevel outer = Bevel::None;
    Bevel inner = Bevel::None;
    int bevelWidth = 1;  ///< Of each bevel, in pixels.
    Color back = 0xC0C0C0;
    Color fore = 0;
    Align align = Align::Center;
};

/// A 3-D panel with a caption; it can hold other controls.
class Panel {
  public:
    Panel(Form& form, const Place& place);    ///< On the form's surface, with no caption.
    Panel(Panel& panel, const Place& place);  ///< On another panel, which must live as long.
    ~Panel();                                 ///< Takes it off its form.
    Panel(Panel&&) noexcept;                  ///< The one that is left may only be destroyed.

    void setLook(const PanelLook& look);       ///< Bevels, colours and where the caption stands.
    void setFont(const Font& font);            ///< Of its caption.
    void setCaption(const std::string& text);  ///< One line of UTF-8, cut to what lies inside the bevels.
    std::string caption() const;               ///< As it was set last; empty at first.

    struct Impl;
    Impl& impl() { return *impl_; }  ///< For the other classes of the same back end.

  private:
    std::unique_ptr<Impl> impl_;
};

/// A 3-D push button: a click, Space or Enter on it presses it.
class CommandButton {
  public:
    CommandButton(Panel& panel, const Place& place);  ///< On a panel, which must live as long.
    ~CommandButton();                                 ///< Takes it off its form, also in its own handler.

    std::function<void()> onClick;  ///< A click or a key has pressed it.

    void setFont(const Font& font);            ///< Of its caption.
    void setCaption(const std::string& text);  ///< One line of UTF-8, in the middle.
    void makeDefault();                        ///< Enter presses it from anywhere on the form but another button.
    void makeCancel();                         ///< Escape presses it from anywhere on the form.

    struct Impl;

  private:
    std::unique_ptr<Impl> impl_;
};

/// Two arrows, one above the other, that repeat while held; with the focus, the Up and Down keys do the same.
class SpinButton {
  public:
    SpinButton(Panel& panel, const Place& place);  ///< On a panel, which must live as long.
    ~SpinButton();                                 ///< Takes it off its form, also in its own handlers.

    std::function<void()> onSpinUp;    ///< Once for each press and repeat of the upper arrow or the Up key.
    std::function<void()> onSpinDown;  ///< Once for each press and repeat of the lower arrow or the Down key.

    struct Impl;

  private:
    std::unique_ptr<Impl> impl_;
};

}  // namespace platform
