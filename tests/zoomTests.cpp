// How large all is shown, in the real window on the screens of screens.json: one of 800 by 800 pixels, and one of 600
// by 400 that are two of its own pixels wide.

#include <QApplication>
#include <QMessageBox>
#include <QScreen>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>
#include <QWindow>

#include "platform/fields.h"
#include "platform/qt/window/formStack.h"
#include "platform/qt/window/formWindow.h"
#include "platform/qt/window/zoom.h"
#include "tests/contractFixture.h"

namespace {

using namespace platform;

class Zoom : public Contract {
  protected:
    ~Zoom() override { qt::setZoom(1); }

    void showActive() {
        showMain();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&top()));
    }

    static QWidget& top() { return *qt::formStack().mainWindow()->window(); }

    static void press(int key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        QTest::keyClick(QApplication::activeWindow(), static_cast<Qt::Key>(key), modifiers);
    }

    static void turnWheel(int angle, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        QWheelEvent turn({50, 50}, top().mapToGlobal(QPointF(50, 50)), {}, {0, angle}, {}, modifiers, {}, false);
        QApplication::sendEvent(qt::formStack().top(), &turn);
    }

    /// The frame has that size in the screen's pixels, and the table stands in its middle.
    static bool isFrame(const QSize& size, double zoom) {
        const QRect table = qt::formStack().mainWindow()->geometry();
        const QPoint off = table.center() - top().rect().center();
        return qt::zoom() == zoom && qt::sizeOnScreen(top()) == QSizeF(size) && table.size() == QSize(300, 200) &&
               std::abs(off.x()) <= 1 && std::abs(off.y()) <= 1;
    }

    /// Its size in the screen's pixels is so many times its own.
    static void expectZoom(double zoom, const std::string& what) {
        EXPECT_EQ(qt::zoom(), zoom) << what;
        EXPECT_EQ(top().devicePixelRatio(), zoom) << what;
        EXPECT_EQ(top().size(), QSize(300, 200)) << what;
        EXPECT_TRUE(QTest::qWaitFor([&] { return qt::sizeOnScreen(top()) == QSizeF(300, 200) * zoom; })) << what;
    }
};

TEST_F(Zoom, IsWhatTheScreenTakes) {
    constexpr QSizeF window(795, 605);  // with its title bar
    struct {
        QSizeF screen;
        double start, largest, least = 1;
    } const rows[] = {
        {{800, 600}, 1, 1},      {{1366, 768}, 1, 1.25}, {{1920, 1080}, 1, 1.75}, {{1080, 1920}, 1, 1.25},
        {{2560, 1440}, 2, 2.25}, {{3840, 2160}, 3, 3.5}, {{1590, 1210}, 1, 2},    {{960, 540}, 1, 0.75, 0.5},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(qt::startZoom(window, row.screen), row.start) << row.screen.width();
        EXPECT_EQ(qt::largestZoom(window, row.screen, row.least), row.largest) << row.screen.width();
    }
}

TEST_F(Zoom, ItOpensAsLargeAsAskedForComesBackToThatAndStaysOnTheScreen) {
    struct {
        double asked, opened;  // 0 asks for what suits the screen
    } const rows[] = {{1.5, 1.5}, {8, 2.5}, {0, 2}, {1, 1}};
    for (const auto& row : rows) {
        qt::setZoom(1);
        qt::askForZoom(row.asked);
        showActive();
        const auto room = [] { return top().screen()->availableGeometry(); };
        expectZoom(row.opened, "opened for " + std::to_string(row.asked));
        press(Qt::Key_Minus);
        top().move(room().bottomRight() - QPoint(top().frameGeometry().width(), top().frameGeometry().height()));
        press(Qt::Key_0);
        expectZoom(row.opened, "again for " + std::to_string(row.asked));
        EXPECT_TRUE(QTest::qWaitFor([&] { return room().contains(top().frameGeometry()); })) << row.asked;
        main_.reset();
    }
}

TEST_F(Zoom, KeysAndTheWheelChangeItPastTheGame) {
    showActive();
    noteKeys(main_->form, "main");
    const auto plus = [] { press(Qt::Key_Plus); };
    const struct {
        const char* what;
        std::function<void()> happens;
        double zoom;
    } rows[] = {
        {"larger", plus, 1.25},
        {"the pad's", [] { press(Qt::Key_Plus, Qt::ControlModifier | Qt::KeypadModifier); }, 1.5},
        {"without Shift", [] { press(Qt::Key_Equal); }, 1.75},
        {"smaller", [] { press(Qt::Key_Minus); }, 1.5},
        {"the wheel", [] { turnWheel(120); }, 1.75},
        {"half a step of it", [] { turnWheel(-60); }, 1.75},
        {"the other half", [] { turnWheel(-60); }, 1.5},
        {"the wheel alone", [] { turnWheel(120, Qt::NoModifier); }, 1.5},
        {"two more", [&] { plus(), plus(); }, 2},
        {"as far as the screen goes", [&] { plus(), plus(), plus(); }, 2.5},
        {"back", [] { press(Qt::Key_0); }, 1},
        {"no smaller", [] { press(Qt::Key_Minus); }, 1},
        {"with Alt too", [] { press(Qt::Key_Plus, Qt::ControlModifier | Qt::AltModifier); }, 1},
    };
    for (const auto& row : rows) {
        row.happens();
        expectZoom(row.zoom, row.what);
    }
    EXPECT_EQ(trace_, "main down 255, main down 255, main press 43") << "only Alt and what is pressed with it";
    Form dialog;
    Panel panel(dialog, {0, 0, 100, 50});
    TextBox box(panel, {10, 10, 50, 20});
    inDialog(dialog, [&] { plus(), turnWheel(120); });
    expectZoom(1.5, "in a dialog");
    EXPECT_EQ(box.text(), "");
}

TEST_F(Zoom, TheTableStandsInTheMiddleOfWhatTheDesktopGives) {
    showActive();
    EXPECT_EQ(top().windowFlags() & Qt::WindowMinMaxButtonsHint, Qt::WindowMinimizeButtonHint);
    press(Qt::Key_Plus);
    const QRect before = top().geometry();
    const auto fillScreen = [] { press(Qt::Key_F11, Qt::NoModifier); };
    const struct {
        const char* what;
        std::function<void()> comes, goes;
        QSize size;
        double zoom;
    } rows[] = {
        {"F11 and Esc", fillScreen, [] { press(Qt::Key_Escape, Qt::NoModifier); }, {800, 800}, 2.5},
        {"F11 twice", fillScreen, fillScreen, {800, 800}, 2.5},
        {"maximised", [] { top().showMaximized(); }, [] { top().showNormal(); }, {796, 796}, 2.5},
        {"tiled",
         [] { top().windowHandle()->resize(400, 560); },
         [] { top().windowHandle()->resize(250, 167); },
         {500, 700},
         1.5},
    };
    for (const auto& row : rows) {
        row.comes();
        EXPECT_TRUE(QTest::qWaitFor([&] { return isFrame(row.size, row.zoom); })) << row.what;
        EXPECT_EQ(top().grab().toImage().pixel(0, 0), 0xFF0A2A20) << "the cloth goes on round the table";
        press(Qt::Key_Minus);
        EXPECT_TRUE(isFrame(row.size, row.zoom)) << row.what;
        row.goes();
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return isFrame({375, 250}, 1.25) && top().minimumSize() == top().size();
        })) << row.what;
    }
    EXPECT_EQ(top().geometry(), before);
}

TEST_F(Zoom, EscIsADialogsOwnOnAFilledScreen) {
    showActive();
    const auto escape = [] { press(Qt::Key_Escape, Qt::NoModifier); };
    press(Qt::Key_F11, Qt::NoModifier);
    Form dialog;
    noteKeys(dialog, "dialog");
    inDialog(dialog, escape);
    EXPECT_EQ(trace_, "dialog down 27, dialog press 27");
    press(Qt::Key_F10, Qt::NoModifier);
    escape();
    EXPECT_TRUE(top().isFullScreen()) << "it took the keys back from the toolbar";
    noteKeys(main_->form, "main");
    escape();
    EXPECT_FALSE(top().isFullScreen());
    escape();
    EXPECT_TRUE(trace_.ends_with("main down 27, main press 27")) << "now it is the game's";
}

TEST_F(Zoom, IsWithinWhatAnotherScreenTakes) {
    showActive();
    for (int step = 0; step < 4; ++step) press(Qt::Key_Plus);
    expectZoom(2, "on the first");
    top().move(850, 50);
    EXPECT_TRUE(QTest::qWaitFor([] { return isFrame({525, 350}, 1.75) && top().devicePixelRatio() == 3.5; }));
    EXPECT_EQ(qt::leastZoom(top()), 0.5);
    press(Qt::Key_F11, Qt::NoModifier);
    EXPECT_TRUE(QTest::qWaitFor([] { return isFrame({600, 400}, 2); }));
    press(Qt::Key_F11, Qt::NoModifier);
    EXPECT_TRUE(QTest::qWaitFor([] { return isFrame({525, 350}, 1.75); }));
    top().move(100, 50);
    EXPECT_TRUE(QTest::qWaitFor([] { return top().devicePixelRatio() == 1.75; }));
    expectZoom(1.75, "on the first again");
}

TEST_F(Zoom, AllIsPaintedAtItsScale) {
    showActive();
    main_->bar.stretch(3);
    Form dialog;
    Panel panel(dialog, {0, 0, 100, 50});
    panel.setCaption("Caption");
    const auto expectPainted = [](const char* when) {
        const auto seen = [] { return top().screen()->grabWindow(top().winId()).toImage(); };
        EXPECT_TRUE(QTest::qWaitFor([&] { return seen() == top().grab().toImage().convertToFormat(seen().format()); }))
            << when;
    };
    inDialog(dialog, [&] {
        press(Qt::Key_Plus);
        expectPainted("larger");
        press(Qt::Key_F11, Qt::NoModifier);
        expectPainted("on the whole screen");
        press(Qt::Key_F11, Qt::NoModifier);
        expectPainted("back");
    });
}

TEST_F(Zoom, AMessageGrowsToo) {
    showActive();
    QMessageBox box(QMessageBox::Warning, "Program", "Text", QMessageBox::Ok, &top());
    box.setModal(false);
    qt::formStack().openBox(&box);
    box.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
    const QSize size = box.size();
    press(Qt::Key_Plus);
    expectZoom(1.25, "over the form");
    EXPECT_EQ(box.size(), size);
    EXPECT_EQ(box.windowHandle()->size(), size) << "the desktop's too";
    qt::formStack().closeBox(&box);
}

TEST_F(Zoom, ThePointerHitsWhatItPointsAt) {
    showActive();
    main_->bar.stretch(3);
    qt::setZoom(1.5);
    const auto clickAt = [](const QPoint& at) { QTest::mouseClick(top().windowHandle(), Qt::LeftButton, {}, at); };
    for (const int x : {28 + 26, 2 * 28 + 1}) clickAt({x, 14});
    Form dialog;
    dialog.move(150 * twips, 100 * twips);
    Panel panel(dialog, {0, 0, 100, 50});
    CommandButton button(panel, {70, 30, 20, 10});
    button.onClick = [&] { note("button"); };
    inDialog(dialog, [&] {
        clickAt({150 + 71, 100 + 31});
        clickAt({150 + 91, 100 + 31});
        clickAt({2, 14});
    });
    EXPECT_EQ(trace_, "tool 2, tool 3, button");
}

}  // namespace
