#include "platform/toolbar.h"

#include <QPainter>
#include <algorithm>

#include "platform/qt/bevel.h"
#include "platform/qt/control.h"
#include "platform/qt/images.h"
#include "platform/qt/slots.h"
#include "platform/qt/toolButton.h"

namespace platform {
namespace {

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
    const QRgb mask = pixelOf(images.maskColor);
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
    DynamicTable<qt::ToolButton*> buttons;
    ImageList images;

    void layOut();
};

void ToolBar::Impl::layOut() {
    int left = 0;
    for (int number = 1; number <= buttons.count(); ++number) {
        buttons[number]->move(left, 0);
        left += buttons[number]->width();
    }
}

ToolBar::ToolBar(Form& form, int height, int buttonCount, const ImageList& images)
    : impl_(std::make_unique<Impl>(qt::windowOf(form), images)) {
    impl_->strip->resize(form.scaleWidth(), height);
    impl_->buttons.resize(buttonCount);
    for (int number = 1; number <= buttonCount; ++number) {
        auto* const button = new qt::ToolButton(impl_->strip.get(), number);
        button->resize(firstButtonWidth, height);
        button->setGap(true);
        button->onClick = [this](int pressed) { qt::callSlot(onButtonClick, pressed); };
        impl_->buttons[number] = button;
    }
    impl_->layOut();
}

ToolBar::~ToolBar() {
    if (impl_->strip.get() == nullptr) return;
    for (int number = 1; number <= buttonCount(); ++number) impl_->buttons[number]->onClick = nullptr;
}

void ToolBar::setWidth(int pixels) { impl_->strip->resize(pixels, impl_->strip->height()); }

int ToolBar::width() const { return impl_->strip->width(); }

int ToolBar::buttonCount() const { return impl_->buttons.count(); }

int ToolBar::buttonWidth(int button) const { return impl_->buttons[button]->width(); }

void ToolBar::setButtonWidth(int button, int pixels) {
    impl_->buttons[button]->resize(pixels, impl_->strip->height());
    impl_->layOut();
}

void ToolBar::setButtonImage(int button, int image) {
    impl_->buttons[button]->setGap(image == 0);
    impl_->buttons[button]->setImage(cutImage(impl_->images, image));
}

void ToolBar::setToolTip(int button, const std::string& text) {
    const QString tip = QString::fromStdString(text);
    impl_->buttons[button]->setToolTip(tip);
    impl_->buttons[button]->setAccessibleName(tip);
}

std::string ToolBar::toolTip(int button) const { return impl_->buttons[button]->toolTip().toStdString(); }

}  // namespace platform
