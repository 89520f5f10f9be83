#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/form.h"

namespace platform {

/// Place and size in pixels, relative to what holds the control.
struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// A frame on a form, drawn over its surface inside its own rectangle; hidden at first.
class Shape {
  public:
    explicit Shape(Form& form);
    ~Shape();

    void setBorder(int width, Color color);
    int borderWidth() const;
    void setPlace(const Place& place);
    Place place() const;
    void setVisible(bool visible);
    bool visible() const;

    struct Impl;

  private:
    std::unique_ptr<Impl> impl_;
};

enum class Bevel { None, Inset, Raised };
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
    Panel(Form& form, const Place& place);
    Panel(Panel& panel, const Place& place);
    ~Panel();
    Panel(Panel&&) noexcept;

    void setLook(const PanelLook& look);
    void setFont(const Font& font);
    void setCaption(const std::string& text);
    std::string caption() const;

    struct Impl;
    Impl& impl() { return *impl_; }  ///< For the other classes of the same back end.

  private:
    std::unique_ptr<Impl> impl_;
};

/// A 3-D push button: a click, Space or Enter on it presses it.
class CommandButton {
  public:
    CommandButton(Panel& panel, const Place& place);
    ~CommandButton();

    std::function<void()> onClick;

    void setFont(const Font& font);
    void setCaption(const std::string& text);
    void makeDefault();  ///< Enter presses it from anywhere on the form but another button.
    void makeCancel();   ///< Escape presses it from anywhere on the form.

    struct Impl;

  private:
    std::unique_ptr<Impl> impl_;
};

/// Two arrows, one above the other, that repeat while held; with the focus, the Up and Down keys do the same.
class SpinButton {
  public:
    SpinButton(Panel& panel, const Place& place);
    ~SpinButton();

    std::function<void()> onSpinUp;
    std::function<void()> onSpinDown;

    struct Impl;

  private:
    std::unique_ptr<Impl> impl_;
};

}  // namespace platform
