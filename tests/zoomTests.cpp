// How large all is shown, in the real window on a screen of 800 by 800 pixels.

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
        double start, largest;
    } const rows[] = {
        {{800, 600}, 1, 1},      {{1366, 768}, 1, 1.25}, {{1920, 1080}, 1, 1.75}, {{1080, 1920}, 1, 1.25},
        {{2560, 1440}, 2, 2.25}, {{3840, 2160}, 3, 3.5}, {{795, 605}, 1, 1},      {{1590, 1210}, 1, 2},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(qt::startZoom(window, row.screen), row.start) << row.screen.width();
        EXPECT_EQ(qt::largestZoom(window, row.screen), row.largest) << row.screen.width();
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
