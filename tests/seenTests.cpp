// What the window, each dialog and each message box show, against the texts in tests/seen, which say what should stand
// there: a line for each thing, from the top down and from the left, and under it what it holds. "~" is a size that
// follows a text in its font. And what a screen reader does and is told.

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QFontInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QStyleOptionComboBox>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "forms/frmAbout.h"
#include "forms/frmOrder.h"
#include "hiscores/frmGetName.h"
#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "match/frmRoundsSetting.h"
#include "modZQT.h"
#include "platform/printer.h"
#include "scoring/frmBreakDown.h"
#include "tests/printService.h"
#include "tests/seenText.h"
#include "tests/windowFixture.h"
#include "toolkit/failures.h"

namespace {

const std::map<QAccessible::Role, std::string> kinds = {
    {QAccessible::Window, "window"},      {QAccessible::Dialog, "dialog"},   {QAccessible::ToolBar, "toolbar"},
    {QAccessible::Button, "button"},      {QAccessible::StaticText, "text"}, {QAccessible::Border, "frame"},
    {QAccessible::EditableText, "field"}, {QAccessible::ComboBox, "list"},   {QAccessible::CheckBox, "check box"},
    {QAccessible::RadioButton, "option"}, {QAccessible::SpinBox, "arrows"},  {QAccessible::Client, "table"},
};

std::string letteringOf(const QWidget& widget) {
    constexpr double pointsPerPixel = 0.75;
    const QFontInfo font(widget.font());
    const int align = widget.property("alignment").toInt();
    std::ostringstream text;
    text << ' ' << font.family().toStdString() << ' ' << font.pixelSize() * pointsPerPixel
         << (font.bold() ? " bold" : "")
         << (align & Qt::AlignRight     ? " right"
             : align & Qt::AlignHCenter ? " middle"
                                        : "");
    return text.str();
}

/// A part of a widget, as it is seen with all that lies over it.
QImage seenOf(QWidget& widget, const QRect& part) {
    const QRect place = part.translated(widget.mapTo(widget.window(), QPoint(0, 0)));
    return widget.window()->grab(place).toImage().convertToFormat(QImage::Format_RGB32);
}

std::string nameOf(QRgb color) { return QColor(color).name().mid(1).toUpper().toStdString(); }

/// " in" or " on" a colour, if it isn't the usual one.
std::string colourOf(const QWidget& widget, QPalette::ColorRole role, const char* word, const char* usual) {
    const std::string name = nameOf(widget.palette().color(QPalette::Active, role).rgb());
    return name != usual ? word + name : "";
}

/// What is painted in the upper left corner and in the lower right one, so many pixels inward.
std::pair<QRgb, QRgb> cornersOf(const QImage& seen, int depth) {
    return {seen.pixel(depth, depth), seen.pixel(seen.rect().bottomRight() - QPoint(depth, depth))};
}

/// The edges, from the corners inward, each with its width.
std::string edgesOf(QWidget& widget) {
    constexpr int light = 0xEF, dark = 0x6A;
    const QImage seen = seenOf(widget, widget.rect());
    const auto edgeAt = [&](int depth) -> std::string {
        const auto [upper, lower] = cornersOf(seen, depth);
        const int shade = qGray(upper), opposite = qGray(lower);
        return shade == light && opposite == dark ? " raised " : shade == dark && opposite == light ? " sunken " : "";
    };
    std::string edges;
    for (int start = 0, end = 0; !edgeAt(start).empty(); start = end) {
        while (edgeAt(end) == edgeAt(start)) ++end;
        edges += edgeAt(start) + std::to_string(end - start);
    }
    return edges;
}

std::string frameOf(QWidget& widget) {
    const QImage seen = seenOf(widget, widget.rect());
    const QRgb color = seen.pixel(0, 0);
    int width = 0;
    while (width < seen.height() && cornersOf(seen, width) == std::pair(color, color)) ++width;
    return ' ' + std::to_string(width) + " wide in " + nameOf(color);
}

/// The number of the picture that is painted on a button of the toolbar; one more than there are if it is none.
std::string pictureOf(QWidget& button) {
    QPixmap onStrip(VELMORA_ASSETS "/pictures/ImageList1.png");
    onStrip.setMask(onStrip.createMaskFromColor(QColor(0xC0C0C0)));
    QImage pictures(onStrip.size(), QImage::Format_RGB32);
    pictures.fill(0xFFEFEFEF);
    QPainter(&pictures).drawPixmap(0, 0, onStrip);
    const QImage seen = seenOf(button, {6, 6, 16, 16});
    int number = 1;
    while (number <= pictures.width() / 16 && seen != pictures.copy(16 * (number - 1), 0, 16, 16)) ++number;
    return " picture " + std::to_string(number);
}

/// Where a label or a button shows its text, on itself.
QRect textPlace(const QWidget& face) {
    if (const auto* label = qobject_cast<const QLabel*>(&face)) {
        const int flags = static_cast<int>(label->alignment()) | (label->wordWrap() ? Qt::TextWordWrap : 0);
        return label->fontMetrics().boundingRect(label->contentsRect(), flags, label->text());
    }
    const auto& button = dynamic_cast<const QAbstractButton&>(face);
    const QSize size = button.fontMetrics().size(Qt::TextShowMnemonic, button.text());
    constexpr int indicator = 19;  // with the gap behind it
    const int left = button.isCheckable() ? indicator : (button.width() - size.width()) / 2;
    return {{left, (button.height() - size.height()) / 2}, size};
}

/// The text has room in its label or button, and nothing lies over it.
void expectWhole(QWidget& face) {
    constexpr int aboveLetters = 6;  // pixels that a line may lose
    const QRect text = textPlace(face) & face.rect();
    EXPECT_TRUE(face.rect().adjusted(0, -aboveLetters, 0, 0).contains(textPlace(face)));
    const QImage asSeen = seenOf(face, text);
    QImage alone(asSeen.size(), QImage::Format_RGB32);
    alone.setDevicePixelRatio(asSeen.devicePixelRatio());
    alone.fill(QColor(192, 192, 192));
    face.render(&alone, QPoint(), text);
    EXPECT_EQ(asSeen, alone);
}

void expectAllWhole(const QWidget& form) {
    QList<QRect> taken;
    for (QWidget* face : form.findChildren<QWidget*>()) {
        const QString text = face->property("text").toString();
        const bool isField = qobject_cast<QLineEdit*>(face) || qobject_cast<QComboBox*>(face);
        if (!face->isVisible() || (text.isEmpty() && !isField)) continue;
        SCOPED_TRACE(text.toStdString());
        if (!isField) expectWhole(*face);
        const QRect place = (isField ? face->rect() : textPlace(*face)).translated(face->mapTo(&form, QPoint(0, 0)));
        for (const QRect& other : taken) EXPECT_FALSE(place.intersects(other));
        taken += place;
    }
}

/// Keeps the name of each notification that comes up, which is what a screen reader says.
class Reader : public QObject {
  public:
    std::vector<std::string> told;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Show) return false;
        const QAccessibleInterface* const object = QAccessible::queryAccessibleInterface(watched);
        // On a dialog it would be spoken of with the dialog's name each time.
        if (object != nullptr && object->role() == QAccessible::Notification &&
            object->parent()->role() == QAccessible::Window)
            told.push_back(object->text(QAccessible::Name).toStdString());
        return false;
    }
};

class Seen : public Window {
  protected:
    void SetUp() override {
        Window::SetUp();
        bringToFront();
    }
    void TearDown() override {
        QAccessible::setActive(false);
        Window::TearDown();
    }

    /// Compares what is seen of a window with the committed text of that name.
    void expect(const std::string& name, QWidget& top) {
        tabOrder_.clear();
        for (QWidget* each = top.nextInFocusChain(); each != &top; each = each->nextInFocusChain())
            if (top.isAncestorOf(each) && each->isVisible() && each->focusPolicy() & Qt::TabFocus &&
                !each->focusProxy())
                tabOrder_.push_back(each);
        lines_.clear();
        tell(top, 0);
        compare(name);
    }

    /// The same for the next message box, which is then closed.
    void expectBox(const std::string& name, const std::function<void()>& show, const QString& leftOut = {}) {
        static const std::map<QMessageBox::Icon, QString> signs = {{QMessageBox::NoIcon, "no sign"},
                                                                   {QMessageBox::Information, "an i"},
                                                                   {QMessageBox::Warning, "an exclamation mark"}};
        bool done = false;
        const auto look = [&] {
            QString lines = "box '" + box()->windowTitle() + "' with " + signs.at(box()->icon()) + "\n  text '" +
                            box()->text().remove(leftOut) + "'\n";
            for (const QAbstractButton* button : box()->buttons()) lines += "  button '" + button->text() + "'\n";
            lines_ = lines.toStdString();
            compare(name);
            done = true;
            QTest::keyClick(box(), Qt::Key_Return);
        };
        once([&] { return box() != nullptr; }, look);
        show();
        EXPECT_TRUE(done) << name;
    }

  private:
    void tell(QWidget& widget, int level) {
        QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(&widget);
        const std::string kind = kinds.at(spoken.role());
        const QString caption = widget.property("text").toString(), name = spoken.text(QAccessible::Name);
        const QString key = spoken.text(QAccessible::Accelerator);
        const bool isField = kind == "field" || kind == "list", isTool = widget.inherits("QToolButton");
        std::ostringstream line;
        line << std::string(static_cast<size_t>(2 * level), ' ') << kind;
        if (!widget.isWindow()) line << ' ' << widget.x() << ',' << widget.y();
        line << ' ' << widget.width() << 'x' << widget.height();
        if (!caption.isEmpty()) line << " '" << caption.toStdString() << '\'';
        if (!caption.isEmpty() || isField) line << letteringOf(widget);
        if (kind == "text") line << edgesOf(widget) << colourOf(widget, QPalette::WindowText, " in ", "000000");
        if (kind == "text" && widget.parentWidget() != window)
            line << colourOf(widget, QPalette::Window, " on ", "C0C0C0");
        if (kind == "frame") line << frameOf(widget);
        if (isField)
            line << " on " << nameOf(seenOf(widget, {widget.width() - 30, widget.height() / 2, 1, 1}).pixel(0, 0));
        if (isTool) line << pictureOf(widget);
        if (!widget.isEnabledTo(widget.window())) line << " disabled";
        const auto place = std::ranges::find(tabOrder_, &widget);
        if (place != tabOrder_.end()) line << " tab " << place - tabOrder_.begin() + 1;
        if (name != QString(caption).remove('&').trimmed()) line << " spoken '" << name.toStdString() << '\'';
        if (!key.isEmpty()) line << " key " << key.toStdString();
        lines_ += line.str() + '\n';
        if (!isField && kind != "arrows") tellParts(widget, level + 1);
        if (kind == "list") tellRows(dynamic_cast<QComboBox&>(widget), level + 1);
    }

    void tellParts(QWidget& widget, int level) {
        QWidgetList parts = widget.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        std::ranges::stable_sort(parts, {}, [](const QWidget* part) { return std::pair(part->y(), part->x()); });
        for (QWidget* part : parts)
            if (part->isVisible()) tell(*part, level);
    }

    /// The rows of a list, each whole in the list's field and in what drops down from it.
    void tellRows(QComboBox& list, int level) {
        QStyleOptionComboBox option;
        option.initFrom(&list);
        const int room =
            list.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &list).width();
        for (int row = 0; row < list.count(); ++row) {
            lines_ +=
                std::string(static_cast<size_t>(2 * level), ' ') + '\'' + list.itemText(row).toStdString() + "'\n";
            EXPECT_LE(list.fontMetrics().horizontalAdvance(list.itemText(row)), room) << row;
        }
        list.showPopup();
        EXPECT_LE(list.view()->sizeHintForColumn(0), list.view()->viewport()->width());
        list.hidePopup();
        bringToFront();
    }

    /// The texts are for a scale of 1.
    void compare(const std::string& name) const {
        if (window->devicePixelRatio() != 1) return;
        std::string expected = seenText(name);
        for (size_t at = 0; (at = expected.find('~')) < lines_.size();)
            expected.replace(at, 1, lines_, at, lines_.find_first_not_of("0123456789", at) - at);
        EXPECT_EQ(lines_, expected) << name;
    }

    std::string lines_;
    std::vector<QWidget*> tabOrder_;
};

TEST_F(Seen, TheMainWindow) {
    const auto* const line = window->findChild<QLabel*>();
    ASSERT_TRUE(QTest::qWaitFor([&] { return line->isVisible(); })) << "a moment after the table";
    expect("mainWindow", *frame);
}

TEST_F(Seen, EachDialog) {
    gstrScoreDesc = "Pure Suit Hand,Mixed Hand";
    glngHandPoints = 800;
    QAccessible::setActive(true);
    const auto dialog = [this](const char* name, auto& form, const std::function<void()>& show,
                               Qt::Key closing = Qt::Key_Escape) {
        inDialog(
            form, show, [&](QWidget& top) { expect(name, top), expectAllWhole(top); }, closing);
    };
    const auto button = [this](const char* toolTip) { return [this, toolTip] { click(toolTip); }; };
    dialog("about", gfrmAbout, button("About Velmora..."));
    dialog("order", gfrmOrder, button("Order"));
    dialog("rounds", gfrmRoundsSetting, button("Rounds Setting"));
    dialog("breakDown", gfrmBreakDown, [] { gfrmBreakDown.showModal(); });
    gfrmGameSummary->msLoadFormVariables(4, 17, 5);
    dialog("summary", gfrmGameSummary, [] { gfrmGameSummary.showModal(); });
    gfrmGetName->msLoadFormVariables(1234567);
    dialog(
        "name", gfrmGetName, [] { gfrmGetName.showModal(); }, Qt::Key_Return);
    dialog("seat", gfrmChooseSeat, button("Start Anew"), Qt::Key_Return);
}

TEST_F(Seen, EachBox) {
    const QTemporaryDir home;
    for (const char* variable : {"HOME", "CUPS_SERVER"}) qputenv(variable, home.path().toLocal8Bit());
    expectBox("failure", [] { gsReportError(6, "Overflow", "msCalcAmtDue"); });
    expectBox(
        "saved", [] { platform::printer().print({}), platform::printer().endDoc(); }, home.path());
}

TEST_F(Seen, ThePictureIsSmoothedWhereAPixelIsNoWholeNumberOfDots) {
    const auto coloursIn = [](const QImage& image) {
        std::set<QRgb> colors;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) colors.insert(image.pixel(x, y));
        return colors;
    };
    const QImage file = QImage(VELMORA_ASSETS "/pictures/101.png").convertToFormat(QImage::Format_RGB32);
    const double scale = window->devicePixelRatio();
    EXPECT_EQ(std::ranges::includes(coloursIn(file), coloursIn(seenOf(*window, {400, 440, 300, 120}))),
              scale == std::floor(scale));
}

TEST_F(Seen, ScaledByTwoAndOneAndAHalf) {
    for (const char* scale : {"2", "1.5"})
        passWith(QString("QT_SCALE_FACTOR=") + scale, "Seen.ThePicture*:Seen.EachDialog");
}

TEST_F(Seen, OnADesktopWithoutFonts) {
    const QTemporaryDir folder;
    passWith("FONTCONFIG_FILE=" + withoutFonts(folder.path()), "Seen.ThePicture*:Seen.EachDialog");
}

TEST_F(Seen, AScreenReaderPressesAButtonAndKnowsNothingOfWhatIsGone) {
    QAccessible::setActive(true);
    QAccessible::Id known = 0;
    const auto press = [&] {
        for (QWidget* each : window->findChildren<QWidget*>())
            if (each->toolTip() == "Rounds Setting")
                QAccessible::queryAccessibleInterface(each)->actionInterface()->doAction(
                    QAccessibleActionInterface::pressAction());
        EXPECT_EQ(known, 0U) << "it isn't kept waiting by the dialog";
        EXPECT_TRUE(waitFor([&] { return known != 0; }));
    };
    inDialog(gfrmRoundsSetting, press, [&](QWidget& dialog) {
        known = QAccessible::uniqueId(QAccessible::queryAccessibleInterface(dialog.findChild<QAbstractButton*>()));
        EXPECT_NE(QAccessible::accessibleInterface(known), nullptr);
    });
    gfrmRoundsSetting.clear();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(QAccessible::accessibleInterface(known), nullptr);
}

TEST_F(Seen, WhatIsAnnouncedComesUpOnTheMainWindow) {
    TearDown();
    QAccessible::setActive(true);  // Somebody listens from the start.
    Reader reader;
    qApp->installEventFilter(&reader);
    SetUp();
    for (int time = 0; time < 2; ++time) game->form.announce([] { return "3 of Bamboo"; });
    inDialog(
        gfrmRoundsSetting, [this] { click("Rounds Setting"); },
        [](QWidget&) { gfrmRoundsSetting->form.announce([] { return "Pass"; }); });
    const std::string begin = "Start Anew (F2) begins a match";  // also when a dialog has gone
    EXPECT_EQ(reader.told, (std::vector<std::string>{begin, "3 of Bamboo", "3 of Bamboo", "Pass", begin}));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(frame)->text(QAccessible::Name), "Velmora");
    QAccessible::setActive(false);
    game->form.announce([]() -> std::string {
        ADD_FAILURE() << "a text was made while nobody listens";
        return "";
    });
    EXPECT_EQ(reader.told.size(), 5u);
}

}  // namespace
