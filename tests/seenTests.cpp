// What the window, each dialog and each message box show, against the texts in tests/seen, which say what should stand
// there: a line for each thing, from the top down and from the left, and under it what it holds. "~" is a size that
// follows a text in its font.

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QFontInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

#include "forms/frmAbout.h"
#include "forms/frmOrder.h"
#include "hiscores/frmGetName.h"
#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "match/frmRoundsSetting.h"
#include "modZQT.h"
#include "platform/printer.h"
#include "scoring/frmBreakDown.h"
#include "tests/windowFixture.h"
#include "toolkit/failures.h"

namespace {

const std::map<QAccessible::Role, std::string> kinds = {
    {QAccessible::Window, "window"},      {QAccessible::Dialog, "dialog"},   {QAccessible::ToolBar, "toolbar"},
    {QAccessible::Button, "button"},      {QAccessible::StaticText, "text"}, {QAccessible::Border, "frame"},
    {QAccessible::EditableText, "field"}, {QAccessible::ComboBox, "list"},   {QAccessible::CheckBox, "check box"},
    {QAccessible::RadioButton, "option"}, {QAccessible::SpinBox, "arrows"},  {QAccessible::AlertMessage, "box"},
};

std::string spoken(QWidget& widget, QAccessible::Text part) {
    return QAccessible::queryAccessibleInterface(&widget)->text(part).toStdString();
}

/// What is written on a widget.
QString captionOf(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) return label->text();
    const auto* const button = qobject_cast<const QAbstractButton*>(&widget);
    return button != nullptr ? button->text() : QString();
}

bool isField(const QWidget& widget) {
    return qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget);
}

std::string letteringOf(const QWidget& widget) {
    constexpr double pointsPerPixel = 0.75;
    const QFontInfo font(widget.font());
    std::ostringstream text;
    text << ' ' << font.family().toStdString() << ' ' << font.pixelSize() * pointsPerPixel
         << (font.bold() ? " bold" : "");
    const auto* const label = qobject_cast<const QLabel*>(&widget);
    const auto* const line = qobject_cast<const QLineEdit*>(&widget);
    const Qt::Alignment align = label ? label->alignment() : line ? line->alignment() : Qt::Alignment();
    return text.str() + (align & Qt::AlignRight ? " right" : align & Qt::AlignHCenter ? " middle" : "");
}

/// Its colours, where they aren't black on light grey, or on white in a field; a frame has no ground of its own.
std::string coloursOf(const QWidget& widget) {
    const auto color = [&](QPalette::ColorRole role, const char* usual, const char* word) {
        const std::string name = widget.palette().color(QPalette::Active, role).name().mid(1).toUpper().toStdString();
        return name != usual ? word + name : "";
    };
    if (isField(widget)) return color(QPalette::Text, "000000", " in ") + color(QPalette::Base, "FFFFFF", " on ");
    if (qobject_cast<const QPushButton*>(&widget))
        return color(QPalette::ButtonText, "000000", " in ") + color(QPalette::Button, "C0C0C0", " on ");
    const bool hasGround = !captionOf(widget).isEmpty() && !widget.testAttribute(Qt::WA_TransparentForMouseEvents);
    return color(QPalette::WindowText, "000000", " in ") + (hasGround ? color(QPalette::Window, "C0C0C0", " on ") : "");
}

/// The edges as they are painted, from the corners inward, each with its width.
std::string edgesOf(QWidget& widget) {
    constexpr int light = 0xEF, dark = 0x6A;
    const QRect place(widget.mapTo(widget.window(), QPoint(0, 0)), widget.size());
    const QImage seen = widget.window()->grab(place).toImage();
    std::string edges, last;
    for (int i = 0, width = 0; i < std::min(seen.width(), seen.height()) / 2; ++i) {
        const int shade = qGray(seen.pixel(i, i)),
                  opposite = qGray(seen.pixel(seen.width() - 1 - i, seen.height() - 1 - i));
        const std::string edge = shade == light && opposite == dark   ? "raised"
                                 : shade == dark && opposite == light ? "sunken"
                                                                      : "";
        if (edge != last && width > 0) edges += ' ' + last + ' ' + std::to_string(std::exchange(width, 0));
        if (edge.empty()) break;
        last = edge;
        ++width;
    }
    return edges;
}

/// The number of the picture that is painted on a button of the toolbar.
std::string pictureOf(QWidget& button) {
    constexpr QRgb stripColor = 0xFFEFEFEF, throughShines = 0xFFC0C0C0;
    QImage pictures = QImage(VELMORA_ASSETS "/pictures/ImageList1.png").convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < pictures.height(); ++y)
        for (int x = 0; x < pictures.width(); ++x)
            if (pictures.pixel(x, y) == throughShines) pictures.setPixel(x, y, stripColor);
    const QPoint place = button.mapTo(button.window(), QPoint(6, 6));
    const QImage seen = button.window()->grab({place, QSize(16, 16)}).toImage().convertToFormat(QImage::Format_RGB32);
    for (int number = 1; number <= pictures.width() / 16; ++number)
        if (seen == pictures.copy(16 * (number - 1), 0, 16, 16)) return " picture " + std::to_string(number);
    return " no picture";
}

/// The controls of a dialog, as Tab goes from one to the next.
std::vector<QWidget*> tabOrderOf(QWidget& dialog) {
    std::vector<QWidget*> order;
    for (QWidget* each = dialog.nextInFocusChain(); each != &dialog; each = each->nextInFocusChain())
        if (dialog.isAncestorOf(each) && each->isVisible() && each->focusPolicy() & Qt::TabFocus && !each->focusProxy())
            order.push_back(each);
    return order;
}

class Seen : public Window {
  protected:
    /// Compares what is seen of a window with the committed text of that name.
    void expect(const std::string& name, QWidget& top) {
        lines_.clear();
        tabOrder_ = tabOrderOf(top);
        tell(top, 0);
        compare(name);
    }

    /// The same for the next message box, which is then closed.
    void expectBox(const std::string& name, const std::function<void()>& show, const std::string& leftOut = "") {
        static const std::map<QMessageBox::Icon, std::string> signs = {{QMessageBox::NoIcon, "no sign"},
                                                                       {QMessageBox::Information, "an i"},
                                                                       {QMessageBox::Warning, "an exclamation mark"}};
        const auto box = [] { return qobject_cast<QMessageBox*>(QApplication::activeWindow()); };
        bool done = false;
        once([&] { return box() != nullptr; },
             [&] {
                 lines_ = "box '" + box()->windowTitle().toStdString() + "' with " + signs.at(box()->icon()) +
                          "\n  text '" + box()->text().remove(QString::fromStdString(leftOut)).toStdString() + "'\n";
                 for (const QAbstractButton* button : box()->buttons())
                     lines_ += "  button '" + button->text().toStdString() + "'\n";
                 compare(name);
                 done = true;
                 QTest::keyClick(box(), Qt::Key_Return);
             });
        show();
        EXPECT_TRUE(done) << name;
    }

  private:
    void tell(QWidget& widget, int level) {
        const std::string& kind = kinds.at(QAccessible::queryAccessibleInterface(&widget)->role());
        const std::string name = spoken(widget, QAccessible::Name), key = spoken(widget, QAccessible::Accelerator);
        const QString caption = captionOf(widget);
        const bool isTool = qobject_cast<QToolButton*>(&widget) != nullptr;
        std::ostringstream line;
        line << std::string(static_cast<size_t>(2 * level), ' ') << kind;
        if (!widget.isWindow()) line << ' ' << widget.x() << ',' << widget.y();
        line << ' ' << widget.width() << 'x' << widget.height();
        if (!caption.isEmpty()) line << " '" << caption.toStdString() << '\'';
        if (!caption.isEmpty() || isField(widget)) line << letteringOf(widget);
        if (qobject_cast<QLabel*>(&widget)) line << edgesOf(widget);
        if (isTool) line << pictureOf(widget);
        if (kind == "frame") line << ' ' << dynamic_cast<const QFrame&>(widget).frameWidth() << " wide";
        if (level > 0 && !isTool && kind != "toolbar") line << coloursOf(widget);
        if (!widget.isEnabledTo(widget.window())) line << " disabled";
        const auto place = std::ranges::find(tabOrder_, &widget);
        if (place != tabOrder_.end()) line << " tab " << place - tabOrder_.begin() + 1;
        if (name != QString(caption).remove('&').trimmed().toStdString()) line << " spoken '" << name << '\'';
        if (!key.empty()) line << " key " << key;
        lines_ += line.str() + '\n';
        tellParts(widget, level + 1);
    }

    void tellParts(QWidget& widget, int level) {
        std::vector<QWidget*> parts;
        for (QObject* child : widget.children())
            if (auto* const part = qobject_cast<QWidget*>(child); part && part->isVisible()) parts.push_back(part);
        const bool isWhole = isField(widget) || qobject_cast<QAbstractSpinBox*>(&widget);
        std::ranges::sort(parts, {}, [](const QWidget* part) { return std::pair(part->y(), part->x()); });
        for (QWidget* part : parts)
            if (!isWhole) tell(*part, level);
    }

    void compare(const std::string& name) const {
        std::ostringstream file;
        file << std::ifstream(VELMORA_SOURCE "/tests/seen/" + name + ".txt").rdbuf();
        std::string expected = file.str();
        for (size_t at = 0; (at = expected.find('~')) < lines_.size();)
            expected.replace(at, 1, lines_, at, lines_.find_first_not_of("0123456789", at) - at);
        EXPECT_EQ(lines_, expected) << name;
    }

    std::string lines_;
    std::vector<QWidget*> tabOrder_;
};

TEST_F(Seen, TheMainWindow) { expect("mainWindow", *window); }

TEST_F(Seen, EachDialog) {
    gstrScoreDesc = "Pure Suit Hand,Mixed Hand";
    glngHandPoints = 800;
    QAccessible::setActive(true);
    const auto dialog = [this](const char* name, auto& form, const std::function<void()>& show,
                               Qt::Key closing = Qt::Key_Escape) {
        inDialog(
            form, show, [&](QWidget& top) { expect(name, top); }, closing);
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
    QAccessible::setActive(false);
}

TEST_F(Seen, EachBox) {
    const QTemporaryDir home;
    for (const char* variable : {"HOME", "CUPS_SERVER"}) qputenv(variable, home.path().toLocal8Bit());
    expectBox("failure", [] { gsReportError(6, "Overflow", "msCalcAmtDue"); });
    expectBox(
        "saved", [] { platform::printer().print({}), platform::printer().endDoc(); }, home.path().toStdString());
}

}  // namespace
