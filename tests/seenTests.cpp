// What the window, each dialog and each message box show, against the texts in tests/seen, which say what should stand
// there: a line for each thing, from the top down and from the left, and under it what it holds. "~" is a size that
// follows a text in its font.

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QFontInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <map>

#include "forms/frmAbout.h"
#include "forms/frmOrder.h"
#include "hiscores/frmGetName.h"
#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "match/frmRoundsSetting.h"
#include "modZQT.h"
#include "platform/printer.h"
#include "scoring/frmBreakDown.h"
#include "tests/seenText.h"
#include "tests/windowFixture.h"
#include "toolkit/failures.h"

namespace {

const std::map<QAccessible::Role, std::string> kinds = {
    {QAccessible::Window, "window"},      {QAccessible::Dialog, "dialog"},   {QAccessible::ToolBar, "toolbar"},
    {QAccessible::Button, "button"},      {QAccessible::StaticText, "text"}, {QAccessible::Border, "frame"},
    {QAccessible::EditableText, "field"}, {QAccessible::ComboBox, "list"},   {QAccessible::CheckBox, "check box"},
    {QAccessible::RadioButton, "option"}, {QAccessible::SpinBox, "arrows"},
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

/// " in" or " on" a colour, if it isn't the usual one.
std::string colourOf(const QWidget& widget, QPalette::ColorRole role, const char* word, const char* usual) {
    const std::string name = widget.palette().color(QPalette::Active, role).name().mid(1).toUpper().toStdString();
    return name != usual ? word + name : "";
}

/// The edges as they are painted, from the corners inward, each with its width.
std::string edgesOf(QWidget& widget) {
    constexpr int light = 0xEF, dark = 0x6A;
    const QImage seen = widget.window()->grab({widget.mapTo(widget.window(), QPoint(0, 0)), widget.size()}).toImage();
    const auto edgeAt = [&](int depth) -> std::string {
        const int shade = qGray(seen.pixel(depth, depth));
        const int opposite = qGray(seen.pixel(seen.width() - 1 - depth, seen.height() - 1 - depth));
        return shade == light && opposite == dark ? " raised " : shade == dark && opposite == light ? " sunken " : "";
    };
    std::string edges;
    for (int start = 0, end = 0; !edgeAt(start).empty(); start = end) {
        while (edgeAt(end) == edgeAt(start)) ++end;
        edges += edgeAt(start) + std::to_string(end - start);
    }
    return edges;
}

/// The number of the picture that is painted on a button of the toolbar; one more than there are if it is none.
std::string pictureOf(QWidget& button) {
    QPixmap onStrip(VELMORA_ASSETS "/pictures/ImageList1.png");
    onStrip.setMask(onStrip.createMaskFromColor(QColor(0xC0C0C0)));
    QImage pictures(onStrip.size(), QImage::Format_RGB32);
    pictures.fill(0xFFEFEFEF);
    QPainter(&pictures).drawPixmap(0, 0, onStrip);
    const QRect place(button.mapTo(button.window(), QPoint(6, 6)), QSize(16, 16));
    const QImage seen = button.window()->grab(place).toImage().convertToFormat(QImage::Format_RGB32);
    int number = 1;
    while (number <= pictures.width() / 16 && seen != pictures.copy(16 * (number - 1), 0, 16, 16)) ++number;
    return " picture " + std::to_string(number);
}

class Seen : public Window {
  protected:
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
        const auto box = [] { return qobject_cast<QMessageBox*>(QApplication::activeWindow()); };
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
        if (kind == "frame")
            line << ' ' << widget.property("frameWidth").toInt() << " wide"
                 << colourOf(widget, QPalette::WindowText, " in ", "");
        if (isField) line << colourOf(widget, QPalette::Base, " on ", "FFFFFF");
        if (isTool) line << pictureOf(widget);
        if (!widget.isEnabledTo(widget.window())) line << " disabled";
        const auto place = std::ranges::find(tabOrder_, &widget);
        if (place != tabOrder_.end()) line << " tab " << place - tabOrder_.begin() + 1;
        if (name != QString(caption).remove('&').trimmed()) line << " spoken '" << name.toStdString() << '\'';
        if (!key.isEmpty()) line << " key " << key.toStdString();
        lines_ += line.str() + '\n';
        if (!isField && kind != "arrows") tellParts(widget, level + 1);
    }

    void tellParts(QWidget& widget, int level) {
        QWidgetList parts = widget.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        std::ranges::stable_sort(parts, {}, [](const QWidget* part) { return std::pair(part->y(), part->x()); });
        for (QWidget* part : parts)
            if (part->isVisible()) tell(*part, level);
    }

    void compare(const std::string& name) const {
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
    expect("mainWindow", *window);
}

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
        "saved", [] { platform::printer().print({}), platform::printer().endDoc(); }, home.path());
}

}  // namespace
