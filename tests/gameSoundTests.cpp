// The game on the real window, as it is heard: the real sound font, SDL's disk driver.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <functional>

#include "frmMain.h"
#include "match/frmChooseSeat.h"
#include "presentation/buttons.h"
#include "tests/application.h"
#include "tests/ear.h"

namespace {

void await(const char* what, const std::function<bool()>& condition) {
    EXPECT_TRUE(QTest::qWaitFor(condition, 20000)) << "waited in vain for " << what;
}

TEST(GameSound, MusicAndThunderAreHeard) {
    setUpApplication();
    Ear ear;
    auto game = gfrmMain.hold();
    game->form.show();
    QTimer person;
    QObject::connect(&person, &QTimer::timeout, [] {
        QWidget* const window = QApplication::activeWindow();
        if (window && gfrmChooseSeat.isOpen()) QTest::keyClick(window, Qt::Key_Enter);
    });
    person.start(10);
    game->tbrZQT_ButtonClick(Button::StartAnew);
    await("music", [&] { return ear.heard().peak(0, ear.now()) > 0.002F; });
    game->tbrZQT_ButtonClick(Button::Music);
    await("the device to close", [&] { return !ear.deviceOpen(); });
    const size_t before = ear.now();
    game->mblnLightningShown = true;
    game->msDrawLightning();
    await("thunder", [&] { return ear.heard().peak(before, ear.now()) > 0.1F; });
    game.reset();
    gsClearAllForms();
}

}  // namespace
