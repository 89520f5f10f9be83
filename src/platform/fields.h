#pragma once

#include <span>
#include <string>

#include "platform/controls.h"

namespace platform {

/// What all controls have in common that a text is typed into.
class EditField : public Control {
  public:
    std::string text() const;  ///< UTF-8.
    void selectAll();          ///< What is typed next takes its place.

  protected:
    using Control::Control;
};

/// One line of text to type in, at the left. Tab selects all of the text that it comes to.
class TextBox : public EditField {
  public:
    TextBox(Panel& panel, const Place& place);  ///< Empty, on a panel, which must live as long.

    void setText(const std::string& text);  ///< Cut to the limit; the caret stands at its end.
    void setMaxLength(int characters);      ///< What is typed, pasted or set later keeps to it.
    void setAlign(Align align);             ///< Of the text in the box.
};

/// A text box with a place for each of so many digits; a place where nothing was typed is a blank in its text.
class MaskEdBox : public EditField {
  public:
    MaskEdBox(Panel& panel, const Place& place, int digits);  ///< On a panel, which must live as long.

    void clear();  ///< Blank at all its places.
};

/// A list that drops down and shows the row chosen. A letter chooses the next row that begins with it, Up and Down the
/// row before and after. It grows to the right where a row finds no room.
class ComboBox : public Control {
  public:
    ComboBox(Panel& panel, const Place& place);  ///< Without rows, on a panel, which must live as long.

    void setRows(std::span<const char* const> texts);  ///< In UTF-8; none of them is chosen.
    std::string text() const;                          ///< Of the row chosen, else empty.
};

/// A box to tick, with a caption at its right, for which it grows if it must.
class CheckBox : public CaptionButton {
  public:
    CheckBox(Panel& panel, const Place& place);  ///< Not ticked, on a panel, which must live as long.

    void setValue(bool ticked);
    bool value() const;
};

/// One of several buttons of which one at most is chosen: those on the same panel. Tab comes to each of them, chosen or
/// not. The arrow keys go from one to the other, and from the one that is chosen they choose it. It grows to the right
/// where its caption finds no room.
class OptionButton : public CaptionButton {
  public:
    OptionButton(Panel& panel, const Place& place);  ///< Not chosen, on a panel, which must live as long.

    void setValue(bool chosen);  ///< Choosing it clears the others on its panel.
    bool value() const;
};

/// One Tab keystroke to the form that is on top when it arrives: after the handler that is running, as a pending event.
void sendTab();

}  // namespace platform
