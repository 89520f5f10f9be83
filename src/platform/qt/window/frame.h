#pragma once

#include <QBasicTimer>
#include <QWidget>
#include <optional>

#include "platform/qt/window/zoom.h"

namespace platform::qt {

class FormWindow;

/// The main window on the desktop, with the main form, the table, in its middle. It has the table's size and can't be
/// dragged to another one. Where the desktop gives it one all the same, since it fills the screen or stands beside
/// other windows, the zoom is the largest with which the table has room, and the one before comes back with the size.
class Frame : public QWidget {
  public:
    explicit Frame(FormWindow& table);  ///< Takes the table as its child; not on the screen.

    void open();                                               ///< Comes up on the screen.
    void fit();                                                ///< The table has another size.
    bool isFilled() const { return zoomBefore_.has_value(); }  ///< Whether the desktop gives it its size.
    void fillScreen(bool fills);                               ///< All of the screen, or no longer.
    void zoomBy(ZoomStep step);                                ///< Nothing while it is filled.

  protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

  private:
    bool isSized() const;
    bool hasOwnSize() const;
    void settleOnScreen();
    void takeAnySize();
    void fill();
    void goBack();

    FormWindow& table_;
    QBasicTimer settles_;               // runs from a change of size that no change of state explains
    std::optional<double> zoomBefore_;  // while the desktop gives it its size
    QPoint cornerBefore_;
    bool hadState_ = false;  // it was maximised or filled the screen when the desktop gave it its size last
};

}  // namespace platform::qt
