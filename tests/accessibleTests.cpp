// What a screen reader does and is told; how it finds the window and its dialogs stands in tests/seen.

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <string>
#include <vector>

#include "match/frmRoundsSetting.h"
#include "tests/windowFixture.h"

namespace {

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

class Accessible : public Window {
  protected:
    Reader reader;

    void SetUp() override {
        Window::SetUp();
        QAccessible::setActive(true);
        qApp->installEventFilter(&reader);
    }
    void TearDown() override {
        QAccessible::setActive(false);
        Window::TearDown();
    }

    static std::string nameOf(QWidget* widget) {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).toStdString();
    }
};

TEST_F(Accessible, AScreenReaderPressesAButton) {
    for (QWidget* widget : window->findChildren<QWidget*>())
        if (widget->toolTip() == "Peek:Off")
            QAccessible::queryAccessibleInterface(widget)->actionInterface()->doAction(
                QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(waitFor([&] { return game->mblnPeek; }));
}

TEST_F(Accessible, NothingIsKnownOfWhatIsGone) {
    QAccessible::Id button = 0;
    inDialog(
        gfrmRoundsSetting, [this] { click("Rounds Setting"); },
        [&](QWidget& dialog) {
            for (QWidget* face : dialog.findChildren<QWidget*>())
                if (nameOf(face) == "OK") button = QAccessible::uniqueId(QAccessible::queryAccessibleInterface(face));
            EXPECT_NE(QAccessible::accessibleInterface(button), nullptr);
        });
    gfrmRoundsSetting.clear();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(QAccessible::accessibleInterface(button), nullptr);
}

TEST_F(Accessible, WhatIsAnnouncedComesUpOnTheMainWindow) {
    Window::TearDown();
    Window::SetUp();  // with somebody who listens from the start
    for (int time = 0; time < 2; ++time) game->form.announce([] { return "3 of Bamboo"; });
    inDialog(
        gfrmRoundsSetting, [this] { click("Rounds Setting"); },
        [](QWidget&) { gfrmRoundsSetting->form.announce([] { return "Pass"; }); });
    const std::string begin = "Start Anew (F2) begins a match";  // also when a dialog has gone
    EXPECT_EQ(reader.told, (std::vector<std::string>{begin, "3 of Bamboo", "3 of Bamboo", "Pass", begin}));
    EXPECT_EQ(nameOf(window), "Velmora");
    QAccessible::setActive(false);
    game->form.announce([]() -> std::string {
        ADD_FAILURE() << "a text was made while nobody listens";
        return "";
    });
    EXPECT_EQ(reader.told.size(), 5u);
}

}  // namespace
