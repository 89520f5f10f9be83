#pragma once

#include <QWidget>

#include "tools/selfplay/player.h"

namespace album {

/// The face of a button of the toolbar, in the game's main window.
QWidget& faceOf(const QWidget& window, int button);

/// Hands at the real window: its keys, its mouse, and a pair of eyes.
class Hands : public selfplay::Hands {
  public:
    /// The game's main window, which must live as long.
    explicit Hands(QWidget* window);

    void press(int keyCode) const override;  ///< An arrow, Enter or Escape.
    void click(int button) const override;
    void restOn(int button) const;  ///< The pointer rests there until its tool-tip comes.
    void leave() const;             ///< Closes what lies on top of the table, if anything does.

    bool seesWindow() const;      ///< The window is on the screen.
    bool seesTableOnly() const;   ///< Nothing lies on top of the table.
    QImage look() const;          ///< The window and all that stands before it, in the screen's own pixels.
    QImage lookAtScreen() const;  ///< The whole screen as it is; null where the desktop doesn't tell.

  private:
    void pointTo(const QPoint& place) const;
    QWidgetList inFront() const;

    QWidget* window_;
};

}  // namespace album
