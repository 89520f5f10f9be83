#include "platform/toolbar.h"

#include <QPainter>
#include <algorithm>
#include <vector>

#include "platform/qt/bevel.h"
#include "platform/qt/control.h"
#include "platform/qt/images.h"
#include "platform/qt/slots.h"
#include "platform/qt/toolButton.h"
#include "runtime.h"

namespace platform {
namespace {

constexpr int firstButtonWidth = 28;  // pixels

class StripFace : public QWidget {
  public:
    explicit StripFace(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_OpaquePaintEvent); }

    void retire() {}  // Never has the focus.

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        constexpr double edgePart = 0.3;
        const QColor back = palette().color(QPalette::Window);
        QPainter painter(this);
        painter.fillRect(rect(), back);
        painter.fillRect(0, height() - 1, width(), 1,
                         qt::towards(back, palette().color(QPalette::WindowText), edgePart));
    }
};

/// The image with that number, the mask colour left out; null if the strip doesn't reach so far.
QImage cutImage(const ImageList& images, int number) {
    const int width = images.imageWidth;
    if (number < 1 || number * width > images.strip.width) return {};
    QImage image = qt::imageOf(images.strip).copy((number - 1) * width, 0, width, images.strip.height);
    const QRgb mask = qt::colorOf(images.maskColor).rgb();
    for (int y = 0; y < image.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::replace(line, line + image.width(), mask, QRgb{0});
    }
    return image;
}

}  // namespace

struct ToolBar::Impl {
    Impl(QWidget* parent, const ImageList& list) : strip(new StripFace(parent)), images(list) {}

    qt::FaceHolder<StripFace> strip;
    std::vector<qt::ToolButton*> buttons;
    ImageList images;

    qt::ToolButton& button(int number) const {
        if (number < 1 || number > static_cast<int>(buttons.size())) failure::subscript();
        return *buttons[static_cast<size_t>(number - 1)];
    }
    void layOut();
};

void ToolBar::Impl::layOut() {
    int left = 0;
    for (qt::ToolButton* each : buttons) {
        each->move(left, 0);
        left += each->width();
    }
}

ToolBar::ToolBar(Form& form, int height, int buttonCount, const ImageList& images)
    : impl_(std::make_unique<Impl>(qt::windowOf(form), images)) {
    impl_->strip->resize(form.scaleWidth(), height);
    for (int number = 1; number <= buttonCount; ++number) {
        auto* const button = new qt::ToolButton(impl_->strip.get(), number);
        button->resize(firstButtonWidth, height);
        button->onClick = [this](int pressed) { qt::callSlot(onButtonClick, pressed); };
        impl_->buttons.push_back(button);
    }
    impl_->layOut();
}

ToolBar::~ToolBar() {
    if (impl_->strip.get())
        for (qt::ToolButton* button : impl_->buttons) button->onClick = nullptr;
}

void ToolBar::setWidth(int pixels) { impl_->strip->resize(pixels, impl_->strip->height()); }

int ToolBar::width() const { return impl_->strip->width(); }

int ToolBar::buttonCount() const { return static_cast<int>(impl_->buttons.size()); }

int ToolBar::buttonWidth(int button) const { return impl_->button(button).width(); }

void ToolBar::setButtonWidth(int button, int pixels) {
    impl_->button(button).resize(pixels, impl_->strip->height());
    impl_->layOut();
}

void ToolBar::setButtonImage(int button, int image) {
    impl_->button(button).setGap(image == 0);
    impl_->button(button).setImage(cutImage(impl_->images, image));
}

void ToolBar::setToolTip(int button, const std::string& text) {
    const QString tip = QString::fromStdString(text);
    impl_->button(button).setToolTip(tip);
    impl_->button(button).setAccessibleName(tip);
}

std::string ToolBar::toolTip(int button) const { return impl_->button(button).toolTip().toStdString(); }

}  // namespace platform
