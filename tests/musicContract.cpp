// What every back end promises of music.

#include <gtest/gtest.h>

#include "platform/sound.h"
#include "tests/contractFixture.h"

namespace {

using namespace platform;
using namespace driver;

TEST_F(Contract, StatusEventsComeWhileThePlayerIsAway) {
    int events = 0;
    MMControl music;
    music.onStatusUpdate = [&] { ++events; };
    showMain();
    music.setUpdateInterval(20);
    goAway();
    events = 0;
    run(200);
    EXPECT_EQ(events, 10);
    comeBack();
    events = 0;
    run(100);
    EXPECT_EQ(events, 5) << "nor late after it";
    music.setUpdateInterval(0);
    run(100);
    EXPECT_EQ(events, 5) << "an interval of 0 ends them";
}

/// Opens a piece in a control for music.
void openPiece(MMControl& music, const std::string& file, const std::string& deviceType = "Sequencer") {
    music.setDeviceType(deviceType);
    music.setFileName(file);
    music.setCommand("Open");
}

TEST_F(Contract, MusicIsOpenedIfItIsThere) {
    struct {
        const char* what;
        int length;  // milliseconds; -1 for no file name
        const char* deviceType;
        int32_t mode;
    } const rows[] = {
        {"a piece", 1000, "Sequencer", 525},
        {"a file that isn't there", 0, "Sequencer", 524},
        {"no piece", -1, "Sequencer", 530},
        {"another device", 1000, "WaveAudio", 524},
    };
    for (const auto& row : rows) {
        MMControl music;
        EXPECT_EQ(music.mode(), 524) << row.what;
        openPiece(music, row.length >= 0 ? pieceOfMusic(row.length) : "", row.deviceType);
        EXPECT_EQ(music.mode(), row.mode) << row.what;
        music.setCommand("Play");
        EXPECT_EQ(music.mode(), row.mode == 525 ? 526 : row.mode) << row.what;
        music.setCommand("Stop");
        EXPECT_EQ(music.mode(), row.mode) << row.what;
        music.setCommand("Close");
        EXPECT_EQ(music.mode(), 524) << row.what;
    }
}

}  // namespace
