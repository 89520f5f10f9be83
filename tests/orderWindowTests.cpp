// The order form in the real window, filled in with keys alone, down to the sheet that comes out.

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include "forms/frmOrder.h"
#include "tests/printService.h"
#include "tests/seenText.h"
#include "tests/windowFixture.h"

namespace {

/// A user without a printer, who has only keys once the form is open.
class OrderWindow : public Window {
  protected:
    void SetUp() override {
        Window::SetUp();
        for (const char* variable : {"HOME", "CUPS_SERVER"}) qputenv(variable, home.path().toLocal8Bit());
        qunsetenv("XDG_CONFIG_HOME");
    }

    /// Opens the form by its button and does something there; Escape closes it if it is still open.
    void inForm(const std::function<void(QWidget&)>& action) {
        inDialog(
            gfrmOrder, [this] { click("Order"); }, action);
    }

    /// Presses a key where the desktop would send it, and lets what it asks for happen.
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::keyClick(focus(), key, modifiers);
        QCoreApplication::processEvents();
    }
    void type(const char* text) const {
        for (; *text != 0; ++text) {
            QTest::keyClick(focus(), *text);
            QCoreApplication::processEvents();
        }
    }
    QWidget* focus() const { return QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : window; }

    /// What the fields hold, the buttons ("+" for what is ticked or chosen, "x" for what is grey) and the amount due.
    static std::string heldBy(const QWidget& form) {
        QString held;
        for (const QWidget* face : form.findChildren<QWidget*>()) {
            const auto* const button = qobject_cast<const QAbstractButton*>(face);
            if (const auto* box = qobject_cast<const QLineEdit*>(face)) held += box->displayText() + '|';
            if (const auto* list = qobject_cast<const QComboBox*>(face)) held += list->currentText() + '|';
            if (button != nullptr) held += button->isChecked() ? '+' : button->isEnabled() ? '.' : 'x';
            if (const QString text = face->property("text").toString(); text.startsWith('$')) held += text;
        }
        return held.toStdString();
    }

    QTemporaryDir home;
};

TEST_F(OrderWindow, IsFilledInPrintedAndClosedByKeysAlone) {
    const std::string texts =
        "Ann B. Carter|Apt. #12|5 High Street|Old Town|Salem|Canada|ann@example.org|3|Oregon - OR|97301|";
    inForm([&](const QWidget& form) {
        const struct {
            const char* typed;
            Qt::Key on;
        } fields[] = {
            {"1Ann B. Carter", Qt::Key_Return},   // no digits in a name
            {"Apt. #12", Qt::Key_Enter},          //
            {"5 High Street", Qt::Key_Tab},       //
            {"Old Town", Qt::Key_Return},         //
            {"Salem", Qt::Key_Return},            //
            {"ooo", Qt::Key_Return},              // the third of the states with an O
            {"a97301", Qt::Key_Return},           //
            {"Canada", Qt::Key_Return},           //
            {"ann@example.org", Qt::Key_Return},  //
            {"03x", Qt::Key_Return},              // neither a zero in front nor a letter
            {" ", Qt::Key_Return},                // ticked, and Enter does nothing there
        };
        for (const auto& field : fields) type(field.typed), key(field.on);
        EXPECT_EQ(heldBy(form), texts + "+xx$36..") << "complete with an electronic copy";
        type(" ");
        EXPECT_EQ(heldBy(form), texts + "...$36x.") << "the tick was taken back";
        key(Qt::Key_Tab);
        type(" ");
        key(Qt::Key_Return);
        EXPECT_EQ(heldBy(form), texts + ".+.$40..");
        for (int i = 0; i < 4; ++i) key(Qt::Key_Tab);
        EXPECT_TRUE(gfrmOrder->txtOrderInfo[0].hasFocus()) << "round";

        EXPECT_FALSE(QDir(home.filePath("Documents")).exists());
        bool told = false;
        once(box, [&] {
            QTest::keyClick(box(), Qt::Key_Return);
            bringToFront();
            told = true;
        });
        key(Qt::Key_P, Qt::AltModifier);  // The button shows for a moment that it is pressed.
        EXPECT_TRUE(waitFor([&] { return told; }));
        EXPECT_EQ("\n" + sheetIn(home.filePath("Documents/Velmora.pdf")), seenText("sheet"));
        EXPECT_EQ(heldBy(form), texts + ".+.$40..") << "nothing typed is lost";
        key(Qt::Key_C, Qt::AltModifier);
        EXPECT_TRUE(waitFor([] { return !gfrmOrder.isOpen(); }));
    });
    inForm([](const QWidget& form) { EXPECT_EQ(heldBy(form), "|||||||||     |...$0x."); });
}

TEST_F(OrderWindow, EscapeClosesTheOpenListAndAZipIsTypedAnew) {
    inForm([&](const QWidget& /*form*/) {
        for (int i = 0; i < 5; ++i) key(Qt::Key_Return);
        const auto listIsOpen = [] { return QApplication::activePopupWidget() != nullptr; };
        key(Qt::Key_Down, Qt::AltModifier);
        ASSERT_TRUE(waitFor(listIsOpen));
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        ASSERT_TRUE(waitFor([&] { return !listIsOpen(); }));
        bringToFront();
        EXPECT_TRUE(gfrmOrder.isOpen());
        for (const char* zip : {"97301", "973"}) key(Qt::Key_Tab), type(zip), key(Qt::Key_Backtab);
        EXPECT_EQ(gfrmOrder->mskOrderInfo.text(), "973  ") << "it takes the place of what was there";
        key(Qt::Key_Escape);
        EXPECT_FALSE(gfrmOrder.isOpen());
    });
}

}  // namespace
