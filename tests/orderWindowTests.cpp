// The order form in the real window, filled in with keys alone, down to the sheet that comes out.

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <algorithm>

#include "forms/frmOrder.h"
#include "tests/expectedSheet.h"
#include "tests/printService.h"
#include "tests/windowFixture.h"

namespace {

constexpr QPoint formPlace(149, 46);  // on the window, in pixels

const std::string annsSheet = expectedSheet(R"(5 High Street
              Old Town
              Salem, OR 97301
)");

/// A user without a printer, who has only keys once the form is open.
class OrderWindow : public Window {
  protected:
    void SetUp() override {
        Window::SetUp();
        ASSERT_TRUE(home.isValid());
        qputenv("HOME", home.path().toLocal8Bit());
        qunsetenv("XDG_CONFIG_HOME");
        qputenv("CUPS_SERVER", home.filePath("no-service").toLocal8Bit());
        QObject::connect(&reader, &QTimer::timeout, window, [this] { readMessage(); });
        reader.start(10);
    }

    /// Opens the form by its button and does something there; it is closed afterwards if it is still open, but kept.
    void inForm(const std::function<void()>& action) {
        bool done = false;
        whenOpen(gfrmOrder, [&] {
            action();
            done = true;
            if (gfrmOrder.isOpen()) gfrmOrder->form.unload();
        });
        click("Order");
        EXPECT_TRUE(done);
        EXPECT_TRUE(!gfrmOrder.empty() && !gfrmOrder.isOpen());
    }

    /// Closes the message box that has the keys, if there is one, and keeps what it said.
    void readMessage() {
        QWidget* const button = QApplication::focusWidget();
        const auto* const box = button == nullptr ? nullptr : qobject_cast<QMessageBox*>(button->window());
        if (box == nullptr) return;
        told.push_back(box->text().toStdString());
        QTest::keyClick(button, Qt::Key_Return);
        bringToFront();
    }

    QWidget* taker() const {
        QWidget* const focus = QApplication::focusWidget();
        return focus != nullptr ? focus : window;
    }

    /// HeldKeys keys where the desktop would send them, and lets what they ask for happen.
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::keyClick(taker(), key, modifiers);
        QCoreApplication::processEvents();
    }
    void type(const char* text) const {
        for (; *text != 0; ++text) {
            QTest::keyClick(taker(), *text);
            QCoreApplication::processEvents();
        }
    }

    /// What lies at that place of the form, in twips, and what it shows; "+" stands for what is chosen or ticked.
    std::string shownAt(int left, int top) const {
        const QWidget* const face = window->childAt(formPlace + QPoint(left / 15 + 6, top / 15 + 8));
        if (const auto* box = qobject_cast<const QLineEdit*>(face)) return box->displayText().toStdString();
        if (const auto* list = qobject_cast<const QComboBox*>(face)) return list->currentText().toStdString();
        if (const auto* label = qobject_cast<const QLabel*>(face)) return label->text().toStdString();
        if (const auto* button = qobject_cast<const QAbstractButton*>(face))
            return button->isChecked() ? "+" : button->isEnabled() ? "" : "grey";
        return "nothing";
    }

    /// Where the field with the focus stands on the form, in twips.
    static QPoint focusPlace() {
        const QWidget* const face = QApplication::focusWidget();
        return (face->mapTo(face->window(), QPoint(0, 0)) - formPlace) * 15;
    }

    /// The electronic copy, the two ways of shipping, the amount due and the button that prints.
    std::string state() const {
        return shownAt(4200, 3720) + ' ' + shownAt(1440, 4080) + ' ' + shownAt(1440, 4320) + ' ' + shownAt(1680, 4680) +
               ' ' + shownAt(4440, 6600);
    }

    QTemporaryDir home;
    QTimer reader;
    std::vector<std::string> told;
};

TEST_F(OrderWindow, IsFilledInPrintedAndClosedByKeysAlone) {
    startMatch();
    nextTile(1);
    ASSERT_TRUE(waitFor([&] { return game->mintCurRow == 2; }));
    int row = 0;
    inForm([&] {
        row = game->mintCurRow;
        EXPECT_FALSE(game->Timer1.enabled());
        EXPECT_EQ(state(), "   $0 grey");
        const QImage list = window->grab(QRect(100, 171, 100, 16).translated(formPlace)).toImage();
        QImage white(list.size(), list.format());
        white.fill(Qt::white);
        EXPECT_TRUE(list == white) << "as white as a box";
        struct {
            const char* typed;
            Qt::Key on;
            int left, top;  // of the next field, in twips
        } const fields[] = {
            {"1Ann B. Carter", Qt::Key_Return, 1440, 1080},   // no digits in a name
            {"", Qt::Key_Enter, 1440, 1440},                  // an empty address line
            {"5 High Street", Qt::Key_Tab, 1440, 1800},       // moves up
            {"Old Town", Qt::Key_Return, 1440, 2160},         // and so does this one
            {"Salem", Qt::Key_Return, 1440, 2520},            //
            {"ooo", Qt::Key_Return, 4200, 2520},              // the third of the states with an O
            {"12", Qt::Key_Backtab, 1440, 2520},              // whose place is taken
            {"", Qt::Key_Tab, 4200, 2520},                    //
            {"a97301", Qt::Key_Return, 1440, 3000},           //
            {"", Qt::Key_Return, 1440, 3360},                 //
            {"ann@example.org", Qt::Key_Return, 1440, 3720},  //
            {"03x", Qt::Key_Return, 4200, 3720},              // neither a zero in front nor a letter
            {" ", Qt::Key_Return, 4200, 3720},                // ticked, and Enter does nothing there
        };
        for (const auto& field : fields) {
            type(field.typed);
            key(field.on);
            EXPECT_EQ(focusPlace(), QPoint(field.left, field.top)) << "after " << field.typed;
        }
        EXPECT_EQ(state(), "+ grey grey $36 ") << "complete with an electronic copy";
        type(" ");
        EXPECT_EQ(state(), "   $36 grey") << "the tick was taken back";
        key(Qt::Key_Tab);
        type(" ");
        EXPECT_EQ(state(), " +  $40 ");
        key(Qt::Key_Down);
        EXPECT_EQ(state(), "  + $43 ");
        for (int i = 0; i < 2; ++i) key(Qt::Key_Backtab, Qt::ShiftModifier);
        type("  ");
        key(Qt::Key_Tab);
        type(" ");
        EXPECT_EQ(state(), " +  $40 ") << "Tab comes to the first of them again";
        key(Qt::Key_Return);
        for (const QPoint& next : {QPoint(1440, 4080), QPoint(1440, 4320), QPoint(4440, 6600), QPoint(5760, 6600)}) {
            EXPECT_EQ(focusPlace(), next);
            key(Qt::Key_Tab);
        }
        EXPECT_EQ(focusPlace(), QPoint(1440, 720)) << "and round";

        EXPECT_FALSE(QDir(home.filePath("Documents")).exists());
        EXPECT_TRUE(told.empty());
        key(Qt::Key_P, Qt::AltModifier);
        ASSERT_TRUE(waitFor([&] {
            return window->isActiveWindow() && !told.empty();
        }));  // The button shows for a moment that it is pressed.
        const std::string sheet = home.filePath("Documents/Velmora.pdf").toStdString();
        EXPECT_EQ(told, std::vector<std::string>{"No printer is set up. The sheet has been saved as\n" + sheet});
        EXPECT_EQ(sheetIn(sheet), annsSheet);

        EXPECT_TRUE(gfrmOrder.isOpen());
        EXPECT_EQ(shownAt(1440, 720), "Ann B. Carter") << "nothing typed is lost";
        key(Qt::Key_C, Qt::AltModifier);
        EXPECT_TRUE(waitFor([] { return !gfrmOrder.isOpen(); }));
    });
    EXPECT_TRUE(game->Timer1.enabled());
    EXPECT_EQ(game->mintCurRow, row);
    EXPECT_TRUE(waitFor([&] { return game->mintCurRow == row + 1; })) << "the fall goes on";
    press(Qt::Key_Left);
    EXPECT_EQ(game->mintCurCol, 4) << "with the keys of the game";
    inForm([&] {
        for (const QPoint& place : {QPoint(1440, 720), QPoint(1440, 2520), QPoint(1440, 3720), QPoint(1440, 4080)})
            EXPECT_EQ(shownAt(place.x(), place.y()), "") << "at " << place.y() << " it still holds something";
        EXPECT_EQ(shownAt(4200, 2520), "     ");
        EXPECT_EQ(focusPlace(), QPoint(1440, 720));
        key(Qt::Key_Escape);
    });
}

TEST_F(OrderWindow, TheStatesAreAllThereWithTheirCodes) {
    inForm([&] {
        const auto& list = *window->findChild<QComboBox*>();
        ASSERT_EQ(list.count(), 51);
        EXPECT_EQ(list.itemText(0), "");
        std::string codes, names;
        for (int row = 1; row < list.count(); ++row) {
            const std::string text = list.itemText(row).toStdString();
            codes += text.substr(text.size() - 2) + ' ';
            names += text.substr(0, text.size() - 2) + '\n';
        }
        EXPECT_EQ(codes,
                  "AK AL AR AZ CA CO CT DE FL GA HI ID IA IL IN KS KY LA ME MA MD MI MN MO MS MT NE NV NH NJ NM NY NC "
                  "ND OH OK OR PA RI SC SD TN TX UT VT VA WA WV WI WY ");
        EXPECT_EQ(std::count(names.begin(), names.end(), '-'), 49) << "North Dakota has none";
        EXPECT_NE(names.find("North Dakota \n"), std::string::npos);
        EXPECT_EQ(names.size(), 620u) << "no letter lost or added";
    });
}

TEST_F(OrderWindow, EscapeClosesTheOpenListBeforeTheForm) {
    inForm([&] {
        for (int i = 0; i < 5; ++i) key(Qt::Key_Return);
        const auto listIsOpen = [] { return QApplication::activePopupWidget() != nullptr; };
        key(Qt::Key_Down, Qt::AltModifier);
        ASSERT_TRUE(waitFor(listIsOpen));
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        ASSERT_TRUE(waitFor([&] { return !listIsOpen(); }));
        bringToFront();
        EXPECT_TRUE(gfrmOrder.isOpen());
        key(Qt::Key_Escape);
        EXPECT_FALSE(gfrmOrder.isOpen());
    });
}

}  // namespace
