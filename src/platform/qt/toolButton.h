#pragma once

#include <QImage>
#include <QWidget>
#include <functional>

namespace platform::qt {

/// One button of the toolbar: flat until the pointer is on it, in the desktop's own colours.
class ToolButton : public QWidget {
  public:
    ToolButton(QWidget* strip, int buttonNumber);

    const int number;  ///< Counts from 1.
    std::function<void(int number)> onClick;

    void setImage(const QImage& image);
    void setGap(bool gap);  ///< A gap is neither seen nor pressed.

  protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void setState(bool hovered, bool down);

    QImage image_;
    bool gap_ = false;
    bool hovered_ = false;
    bool held_ = false;  // the mouse button went down on it
    bool down_ = false;  // and the pointer is still on it
};

}  // namespace platform::qt
