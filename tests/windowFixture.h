#pragma once

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QWidget>
#include <functional>
#include <list>
#include <memory>

#include "frmMain.h"
#include "platform/qt/controls/control.h"
#include "platform/qt/window/clock.h"
#include "platform/timer.h"

/// The game in its real window, offscreen, with nothing begun. Time is held and passes only while a test waits for
/// something.
class Window : public ::testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Clicks the button with that tool-tip; returns when its command is done.
    void click(const QString& toolTip);
    /// Presses a key with the game's window in front, and lets it go.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// The key is held since it was pressed, and repeats.
    void repeat(Qt::Key key);
    /// Does something as soon as the condition holds, also inside a dialog's own loop.
    void once(std::function<bool()> condition, std::function<void()> action);
    /// Does something as soon as the dialog has opened.
    template <class Dialog>
    void whenOpen(const FormRef<Dialog>& dialog, std::function<void()> action) {
        once([&] { return dialog.isOpen(); }, std::move(action));
    }
    /// Shows a dialog, does something with its window and closes it by a key if it is still open.
    template <class Dialog>
    void inDialog(FormRef<Dialog>& dialog, const std::function<void()>& show,
                  const std::function<void(QWidget&)>& action, Qt::Key closing = Qt::Key_Escape) {
        bool done = false;
        whenOpen(dialog, [&] {
            action(*platform::qt::windowOf(dialog->form));
            done = true;
            if (dialog.isOpen()) press(closing);
        });
        show();
        EXPECT_TRUE(done);
    }
    /// False if the condition doesn't come to hold for longer than anything here may take.
    bool waitFor(const std::function<bool()>& condition);
    void letPass(int milliseconds);  ///< Of the held time.

    static QMessageBox* box();  ///< The message box in front; null if none is there.
    /// Gives the main window the keys, as the desktop does when a window before it has gone.
    void bringToFront();
    /// Begins a match; the seat is drawn by the first Enter.
    void startMatch();
    /// Waits for the next tile to enter; it is made one of the kind.
    void nextTile(int16_t kind);

    static inline const char* desktop = "offscreen";  ///< Qt's name of it; set before the first window.

    std::shared_ptr<frmMain> game;
    QWidget* window = nullptr;  ///< The table.
    QWidget* frame = nullptr;   ///< The main window around it.

  private:
    struct Hand {
        platform::Timer timer{platform::Timer::WhileAway::GoesOn};
        platform::qt::TimePasses timePasses;
    };
    std::list<Hand> hands_;
};
