#include <qdrawutil.h>

#include <QFrame>
#include <QLabel>
#include <QPainter>
#include <QTimer>
#include <cmath>

#include "platform/qt/controls/control.h"
#include "platform/qt/window/fonts.h"
#include "platform/qt/window/images.h"
#include "platform/shared/ticks.h"

namespace platform {
namespace {

constexpr QRgb lightEdge = 0xFFEFEFEF, darkEdge = 0xFF6A6A6A;  // of a bevel

/// A label of Qt's with two bevels round its text.
class PanelFace : public QLabel {
  public:
    PanelFace(QWidget* parent, const Place& place) : QLabel(parent) {
        setStyle(qt::classicStyle());
        setTextFormat(Qt::PlainText);
        setIndent(0);
        qt::setPlace(*this, place);
        setVisible(true);
        setLook({});
    }

    void setLook(const PanelLook& look) {
        look_ = look;
        QPalette palette = qt::classicPalette();
        palette.setColor(QPalette::WindowText, qt::colorOf(look.fore));
        palette.setColor(QPalette::Light, QColor(lightEdge));
        palette.setColor(QPalette::Dark, QColor(darkEdge));
        setPalette(palette);
        const int bevels = (look.outer != Bevel::None ? 1 : 0) + (look.inner != Bevel::None ? 1 : 0);
        const int margin = bevels * look.bevelWidth;
        setContentsMargins(margin, margin, margin, margin);
        setWordWrap(look.fit == Fit::Height);
        fit();
    }

    void fit() {
        QFont spaced = font();
        spaced.setWordSpacing(-look_.closer);
        setFont(spaced);
        const int textWidth = static_cast<int>(std::ceil(QFontMetricsF(font()).horizontalAdvance(text())));
        if (look_.fit == Fit::Width) resize(textWidth + width() - contentsRect().width(), height());
        if (look_.fit == Fit::Height) resize(width(), heightForWidth(width()));
        // A line that is higher than its panel loses the room above its letters rather than what hangs below them.
        const bool tooHigh = fontMetrics().height() > contentsRect().height();
        setAlignment(qt::alignmentOf(look_.align) | (tooHigh ? Qt::AlignBottom : Qt::AlignVCenter));
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        QRect inside = rect();
        painter.fillRect(inside, palette().window());
        for (const Bevel bevel : {look_.outer, look_.inner}) {
            if (bevel == Bevel::None) continue;
            qDrawShadePanel(&painter, inside, palette(), bevel == Bevel::Inset, look_.bevelWidth);
            inside.adjust(look_.bevelWidth, look_.bevelWidth, -look_.bevelWidth, -look_.bevelWidth);
        }
        painter.end();
        QLabel::paintEvent(event);
    }

  private:
    PanelLook look_;
};

PanelFace& faceOf(const Panel::Impl& panel) { return *static_cast<PanelFace*>(panel.face.get()); }

}  // namespace

struct Shape::Impl {
    qt::Owned<QFrame> frame;
};

Shape::Shape(Form& form) : impl_(new Impl{qt::Owned(new QFrame(qt::windowOf(form)))}) {
    impl_->frame->setStyle(qt::classicStyle());
    impl_->frame->setFrameStyle(QFrame::Box | QFrame::Plain);
    impl_->frame->setAttribute(Qt::WA_TransparentForMouseEvents);
    show({});
}

Shape::~Shape() = default;

void Shape::show(const Look& look) {
    look_ = look;
    QPalette palette;
    palette.setColor(QPalette::WindowText, qt::colorOf(look.borderColor));
    impl_->frame->setPalette(palette);
    impl_->frame->setLineWidth(look.borderWidth);
    qt::setPlace(*impl_->frame.get(), look.place);
    impl_->frame->setVisible(look.visible);
}

/// On a form that isn't seen yet it waits until the form has been painted: the first text of a run has the desktop's
/// fonts looked through, which takes a third as long as all the rest of the start.
struct Label::Impl : QObject {
    explicit Impl(QWidget* form) : face(new QLabel(form)), isEarly(!form->isVisible()) {
        form->installEventFilter(this);
    }

    bool eventFilter(QObject* /*form*/, QEvent* event) override {
        constexpr int moment = 20;  // milliseconds
        if (event->type() == qt::FormStack::playerHasMoved) present();
        if (event->type() == QEvent::Paint && isEarly)
            QTimer::singleShot(moment, this, [this] {
                isEarly = false;
                present();
            });
        return false;
    }

    void present() {
        if (face.get() == nullptr) return;
        const bool isSeen = !isEarly && !face->text().isEmpty() && !ticks().isAway();
        if (isSeen) face->setFont(qt::fontOf(font));
        face->setVisible(isSeen);
    }

    qt::Owned<QLabel> face;
    bool isEarly;
    Font font;
};

Label::Label(Form& form, const Place& place) : impl_(new Impl(qt::windowOf(form))) {
    impl_->face->setStyle(qt::classicStyle());
    impl_->face->setTextFormat(Qt::PlainText);
    impl_->face->setAttribute(Qt::WA_TransparentForMouseEvents);
    qt::setPlace(*impl_->face.get(), place);
    impl_->present();
}

Label::~Label() = default;

void Label::setLook(const Font& font, Color color) {
    QPalette palette;
    palette.setColor(QPalette::WindowText, qt::colorOf(color));
    impl_->face->setPalette(palette);
    impl_->font = font;
    impl_->present();
}

void Label::setText(const std::string& text) {
    impl_->face->setText(QString::fromStdString(text));
    impl_->present();
}

std::string Label::text() const { return impl_->face->text().toStdString(); }

Panel::Panel(Form& form, const Place& place)
    : impl_(new Impl{qt::Owned<QLabel>(new PanelFace(qt::windowOf(form), place))}) {}

Panel::Panel(Panel& panel, const Place& place)
    : impl_(new Impl{qt::Owned<QLabel>(new PanelFace(panel.impl().face.get(), place))}) {}

Panel::~Panel() = default;

Panel::Panel(Panel&&) noexcept = default;

void Panel::setLook(const PanelLook& look) { faceOf(*impl_).setLook(look); }

void Panel::setFont(const Font& font) {
    impl_->face->setFont(qt::fontOf(font));
    faceOf(*impl_).fit();
}

void Panel::setCaption(const std::string& text) {
    impl_->face->setText(QString::fromStdString(text));
    impl_->face->setAccessibleName(impl_->face->text().trimmed());
    faceOf(*impl_).fit();
}

std::string Panel::caption() const { return impl_->face->text().toStdString(); }

}  // namespace platform
