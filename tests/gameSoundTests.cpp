// The game on the real window, as it is heard: the real sound font, SDL's disk driver.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <cmath>
#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "frmMain.h"
#include "match/frmChooseSeat.h"
#include "presentation/buttons.h"
#include "tests/application.h"
#include "tests/ear.h"
#include "tests/soundFiles.h"

namespace {

constexpr float audible = 0.002F;
constexpr int longEnough = 20000;  // milliseconds that anything here may take at most

class GameSound : public testing::Test {
  protected:
    GameSound() {
        setUpApplication();
        ear.emplace();
        game = gfrmMain.hold();
        game->form.show();
        for (QWidget* each : QApplication::topLevelWidgets())
            if (each->isVisible()) window = each;
    }

    ~GameSound() override {
        game.reset();
        gsClearAllForms();
        await("the device to close", [this] { return !ear->deviceOpen(); });
    }

    static void await(const char* what, const std::function<bool()>& condition) {
        EXPECT_TRUE(QTest::qWaitFor(condition, longEnough)) << "waited in vain for " << what;
    }

    void awaitFrames(size_t count) {
        await("frames", [&, end = ear->now() + count] { return ear->now() >= end; });
    }

    void awaitSound() {
        await("music", [&, before = ear->now()] { return ear->heard().peak(before, ear->now()) > audible; });
    }

    /// Presses a button; the seat is drawn at once.
    void press(int button) {
        QTimer person;
        QObject::connect(&person, &QTimer::timeout, [this] {
            if (gfrmChooseSeat.isOpen()) QTest::keyClick(window, Qt::Key_Enter);
        });
        person.start(10);
        game->tbrZQT_ButtonClick(button);
    }

    /// Lets the game play another piece.
    void take(const std::string& piece) {
        const std::string file = folder.filePath("piece.mid").toStdString();
        std::ofstream(file, std::ios::binary) << piece;
        game->mmcZQT.setCommand("Close");
        game->mmcZQT.setFileName(file);
        game->mmcZQT.setCommand("Open");
    }

    /// Where knocks begin that so many frames of silence precede.
    static std::vector<size_t> knocks(const Heard& heard, size_t from) {
        constexpr size_t silence = framesIn(150);
        std::vector<size_t> found;
        size_t last = from;
        for (size_t at = from; at < heard.frames.size(); ++at) {
            if (std::fabs(heard.frames[at]) <= audible) continue;
            if (found.empty() || at - last > silence) found.push_back(at);
            last = at;
        }
        return found;
    }

    const QTemporaryDir folder;
    std::optional<Ear> ear;
    std::shared_ptr<frmMain> game;
    QWidget* window = nullptr;
};

TEST_F(GameSound, ThePieceIsRepeatedUntilItIsStopped) {
    constexpr double length = 700;  // milliseconds
    take(piece(woodBlock, {{0, 50, 60}}, static_cast<int>(length)));
    press(Button::StartAnew);
    awaitSound();
    press(Button::Pause);
    EXPECT_FALSE(game->Timer1.enabled());
    awaitFrames(framesIn(4500));
    const std::vector<size_t> begun = knocks(ear->heard(), 0);
    ASSERT_GE(begun.size(), 5U);
    for (size_t i = 1; i < begun.size(); ++i) {
        EXPECT_GT(begun[i] - begun[i - 1], framesIn(length - 20));
        EXPECT_LT(begun[i] - begun[i - 1], framesIn(length + 200)) << "repeat " << i;
    }
    const size_t stopped = ear->now();
    press(Button::Stop);
    await("the device to close", [this] { return !ear->deviceOpen(); });
    EXPECT_LT(ear->heard().lastAbove(0), stopped + framesIn(300));
    QTest::qWait(200);
    EXPECT_FALSE(ear->deviceOpen()) << "nothing begins it again";
}

TEST_F(GameSound, TheGamesOwnMusicAndThunderAreHeard) {
    press(Button::StartAnew);
    awaitSound();
    press(Button::Music);
    await("the device to close", [this] { return !ear->deviceOpen(); });
    const size_t before = ear->now();
    game->mblnLightningShown = true;
    game->msDrawLightning();
    await("thunder", [&] { return ear->heard().peak(before, ear->now()) > 0.1F; });
}

TEST_F(GameSound, ManyPressesLeaveWhatTheLastOneWants) {
    press(Button::StartAnew);
    for (int number = 0; number < 30; ++number) {
        press(number % 3 == 2 ? Button::Stop : Button::Music);
        QTest::qWait(number * 6);
    }
    press(Button::Stop);
    await("the device to close", [this] { return !ear->deviceOpen(); });
    press(Button::StartAnew);
    if (!game->mblnMusicOn) press(Button::Music);
    awaitSound();
}

}  // namespace
