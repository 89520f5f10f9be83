#include "platform/toolbar.h"

#include <QFrame>
#include <QPointer>
#include <QStyleOptionToolButton>
#include <QToolButton>
#include <algorithm>

#include "platform/qt/control.h"
#include "platform/qt/images.h"

namespace platform {
namespace {

constexpr QRgb stripColor = 0xFFEFEFEF;  // The same under every desktop theme, since the images are made for it.
constexpr QRgb edgeColor = 0xFFA8A8A8;   // of the line under it

class ToolButton : public QToolButton {
  public:
    using QToolButton::QToolButton;

  protected:
    // It doesn't rise under the pointer while something on top keeps clicks from it.
    void initStyleOption(QStyleOptionToolButton* option) const override {
        QToolButton::initStyleOption(option);
        if (qt::formStack().blocks(this)) option->state &= ~QStyle::State_MouseOver;
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
    explicit Impl(QWidget* parent, const ImageList& list) : strip(new QWidget(parent)), images(list) {}

    qt::Owned<QWidget> strip;
    QFrame* edge = nullptr;
    DynamicTable<QToolButton*> buttons;
    ImageList images;

    void layOut();
};

void ToolBar::Impl::layOut() {
    edge->setGeometry(0, strip->height() - 1, strip->width(), 1);
    int left = 0;
    for (int number = 1; number <= buttons.count(); ++number) {
        buttons[number]->move(left, 0);
        left += buttons[number]->width();
    }
}

ToolBar::ToolBar(Form& form, int height, int buttonCount, const ImageList& images)
    : impl_(std::make_unique<Impl>(qt::windowOf(form), images)) {
    QPalette palette{QColor(stripColor)};
    palette.setColor(QPalette::WindowText, QColor(edgeColor));
    impl_->strip->setPalette(palette);
    impl_->strip->setAutoFillBackground(true);
    impl_->strip->resize(form.scaleWidth(), height);
    impl_->edge = new QFrame(impl_->strip.get());
    impl_->edge->setFrameStyle(QFrame::HLine | QFrame::Plain);
    impl_->buttons.resize(buttonCount);
    for (int number = 1; number <= buttonCount; ++number) {
        auto* const button = new ToolButton(impl_->strip.get());
        button->setStyle(qt::classicStyle());
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->resize(firstButtonWidth, height);
        button->setVisible(false);
        QObject::connect(button, &QToolButton::clicked, impl_->strip.get(),
                         [this, button, number] { qt::answer(button, onButtonClick, number); });
        impl_->buttons[number] = button;
    }
    impl_->layOut();
    if (impl_->strip->parentWidget()->isVisible()) impl_->strip->show();
}

ToolBar::~ToolBar() {
    if (impl_->strip.get() == nullptr) return;
    for (int number = 1; number <= buttonCount(); ++number) impl_->buttons[number]->disconnect();
}

void ToolBar::setWidth(int pixels) {
    impl_->strip->resize(pixels, impl_->strip->height());
    impl_->layOut();
}

int ToolBar::width() const { return impl_->strip->width(); }

int ToolBar::buttonCount() const { return impl_->buttons.count(); }

int ToolBar::buttonWidth(int button) const { return impl_->buttons[button]->width(); }

void ToolBar::setButtonWidth(int button, int pixels) {
    impl_->buttons[button]->resize(pixels, impl_->strip->height());
    impl_->layOut();
}

void ToolBar::setButtonImage(int button, int image) {
    const QImage icon = cutImage(impl_->images, image);
    impl_->buttons[button]->setIcon(QIcon(QPixmap::fromImage(icon)));
    impl_->buttons[button]->setIconSize(icon.size());
    impl_->buttons[button]->setVisible(image != 0);
}

void ToolBar::setToolTip(int button, const std::string& text) {
    const QString tip = QString::fromStdString(text);
    impl_->buttons[button]->setToolTip(tip);
    impl_->buttons[button]->setAccessibleName(tip);
}

std::string ToolBar::toolTip(int button) const { return impl_->buttons[button]->toolTip().toStdString(); }

}  // namespace platform
