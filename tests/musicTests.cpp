// When the music plays, from the toolbar's commands to the device, in virtual time.

#include "tests/gameFixture.h"

namespace {

constexpr double statusInterval = 55;  // milliseconds

/// The game with someone who confirms whatever opens.
class GameMusic : public GameFixture {
  protected:
    void SetUp() override {
        GameFixture::SetUp();
        trace.clear();
        sim::setLog([this](const std::string& line) {
            const size_t at = line.find("music ");
            if (at == std::string::npos) return;
            const bool plays = line.find("plays", at) != std::string::npos;
            trace += (trace.empty() ? "" : ", ") + (plays ? line.substr(at + 6) : "stops");
            if (plays) begun.push_back(sim::now());
        });
        sim::setHands([] {
            if (sim::modalDepth() > 0) sim::pressKey(platform::key::Enter);
        });
    }

    std::string trace;          ///< When the music began to play and stopped.
    std::vector<double> begun;  ///< Milliseconds.
};

TEST_F(GameMusic, ItFollowsTheCommands) {
    constexpr int endOfMatch = 0;  // instead of a button
    using namespace Button;
    struct {
        const char* what;
        std::vector<int> buttons;
        const char* trace;
        bool wanted = true;  // as the tool-tip tells
    } const rows[] = {
        {"Music before the first match waits for it", {Music}, "", false},
        {"and pressed twice it still waits", {Music, Music}, ""},
        {"and is off when it begins", {Music, StartAnew}, "", false},
        {"or on again", {Music, Music, StartAnew}, "plays from 0"},
        {"a match plays the piece", {StartAnew}, "plays from 0"},
        {"another one doesn't disturb it", {StartAnew, StartAnew}, "plays from 0"},
        {"nor does Pause", {StartAnew, Pause, Pause, Pause}, "plays from 0"},
        {"nor do options", {StartAnew, Round, Peek, BreakDown}, "plays from 0"},
        {"Music off", {StartAnew, Music}, "plays from 0, stops", false},
        {"and on: from the beginning", {StartAnew, Music, Music}, "plays from 0, stops, plays from 0"},
        {"off, then a match", {StartAnew, Music, StartAnew}, "plays from 0, stops", false},
        {"Stop", {StartAnew, Stop}, "plays from 0, stops"},
        {"Pause lets the fall go on alone", {StartAnew, Stop, Pause}, "plays from 0, stops"},
        {"the next match brings it back", {StartAnew, Stop, StartAnew}, "plays from 0, stops, plays from 0"},
        {"the end of a match", {StartAnew, endOfMatch}, "plays from 0, stops"},
        {"and the next one", {StartAnew, endOfMatch, StartAnew}, "plays from 0, stops, plays from 0"},
        {"Music twice without a match", {StartAnew, endOfMatch, Music, Music}, "plays from 0, stops, plays from 0"},
    };
    for (const auto& row : rows) {
        SetUp();
        for (const int button : row.buttons) {
            if (button == endOfMatch) gintNumRounds = game->mintRoundsPlayed = 1;
            sim::clickToolButton(button);
            sim::runFor(1000);
        }
        EXPECT_EQ(trace, row.trace) << row.what;
        const bool sounds = !trace.empty() && !trace.ends_with("stops");
        EXPECT_EQ(sim::pieceSounds(), sounds) << row.what;
        EXPECT_EQ(game->mmcZQT.updateInterval(), sounds ? statusInterval : 0) << row.what;
        EXPECT_EQ(game->tbrZQT.toolTip(Button::Music), row.wanted ? "Music:On" : "Music:Off") << row.what;
    }
}

TEST_F(GameMusic, ThePieceBeginsAtTheNextStatusEventAndEndlesslyAnew) {
    constexpr double length = 2000;  // milliseconds
    sim::setPieceLength(length);
    sim::clickToolButton(Button::StartAnew);
    const double pressed = sim::now();
    sim::goAway();  // The music plays on.
    sim::runFor(20000);
    ASSERT_GE(begun.size(), 9U);
    EXPECT_EQ(begun[0], pressed + statusInterval);
    for (size_t i = 1; i < begun.size(); ++i) {
        EXPECT_GE(begun[i], begun[i - 1] + length);
        EXPECT_LE(begun[i], begun[i - 1] + length + statusInterval);
    }
    begun.clear();
    sim::clickToolButton(Button::Stop);
    sim::runFor(20000);
    EXPECT_TRUE(begun.empty());
}

TEST_F(GameMusic, WithoutPieceOrDeviceTheGameIsSilentAndSaysNothing) {
    struct {
        const char* what;
        void (*take)(frmMain&);
        int interval, mode;  // during a match
    } const rows[] = {
        {"no piece",
         [](frmMain& form) {
             sim::setPieceLength(0);
             form.mmcZQT.setCommand("Close");
             form.Form_Load();
         },
         55, 524},
        {"no device", [](frmMain&) { sim::setSoundDevice(false); }, 55, 524},
        {"not set up", [](frmMain& form) { form.mblnMusicReady = false; }, 0, 525},
    };
    for (const auto& row : rows) {
        SetUp();
        row.take(*game);
        sim::clickToolButton(Button::StartAnew);
        sim::runFor(3000);
        EXPECT_EQ(trace, "") << row.what;
        EXPECT_GT(game->mintTilesDropped, 0) << row.what;
        EXPECT_EQ(game->mmcZQT.updateInterval(), row.interval) << row.what;
        EXPECT_EQ(game->mmcZQT.mode(), row.mode) << row.what << ": it isn't begun again and again";
        sim::clickToolButton(Button::Stop);
        EXPECT_EQ(game->mmcZQT.command(), "Prev") << row.what << ": stopped without a test";
        EXPECT_TRUE(sim::messages().empty()) << row.what;
    }
}

TEST_F(GameMusic, ADeviceThatStandsOpenIsNotOpenedAgainAndClosedAtTheEnd) {
    constexpr const char* noPiece = "";
    struct {
        const char *file, *secondCommand, *lastCommand;
    } const rows[] = {{noPiece, "Next", "Close"}, {"piece.mid", "Open", "Open"}};
    for (const auto& row : rows) {
        SetUp();
        platform::MMControl& device = game->mmcZQT;
        device.setCommand("Close");
        EXPECT_TRUE(gblnfInitMCI(device, true, false, 0, row.file, "Sequencer"));
        EXPECT_EQ(device.command(), "Open");
        device.setCommand("Next");
        EXPECT_TRUE(gblnfInitMCI(device, true, false, 0, row.file, "Sequencer"));
        EXPECT_EQ(device.command(), row.secondCommand) << row.file;
        EXPECT_THROW(game->msExitProgram(), sim::ProcessEnded);
        EXPECT_EQ(device.command(), row.lastCommand) << row.file;
    }
}

TEST(MusicDevice, IsOpenedIfThePieceIsThereAndPlaysFromWhereItStands) {
    constexpr int whole = 1000, rest = 400, nothing = 0;  // milliseconds of the piece
    struct {
        const char* script;  // commands, and milliseconds between them
        int32_t mode;        // after it
        int plays;           // milliseconds from then on
        const char *file = "piece.mid", *deviceType = "Sequencer";
        int length = whole;  // 0 if the file isn't there
    } const rows[] = {
        {"Play", 524, nothing},
        {"Open", 525, nothing},
        {"Open Play", 526, whole},
        {"Open Close Play", 524, nothing},
        {"Open Play Stop Close", 524, nothing, ""},
        {"Open Play", 524, nothing, "none.mid", "Sequencer", 0},
        {"Open Play Stop", 524, nothing, "none.mid", "Sequencer", 0},
        {"Open Play", 530, nothing, ""},
        {"Open Play Stop", 530, nothing, ""},
        {"Open Play", 524, nothing, "piece.mid", "WaveAudio"},
        {"Open Play 600 Stop", 525, nothing},
        {"Open Play 600 Stop Play", 526, rest},
        {"Open Play 600 Stop 900 Play", 526, rest},
        {"Open Play 600 Stop Prev Play", 526, whole},
        {"Open Play 600 Stop Next Play", 526, whole},
        {"Open Play 600 Play", 526, rest},
        {"Open Play 600 Next", 526, whole},
        {"Open Play 600 Louder", 526, rest},
        {"Open Play 600 Close Play", 524, nothing},
        {"Open Play 1300", 525, nothing},
        {"Open Play 1300 Play", 525, nothing},
        {"Open Play 1300 Stop Play Stop", 525, nothing},
        {"Open Play 1300 Next Play", 526, whole},
    };
    for (const auto& row : rows) {
        sim::switchOn(1);
        sim::setPieceLength(row.length);
        platform::MMControl music;
        music.setDeviceType(row.deviceType);
        music.setFileName(row.file);
        for (const std::string& word : words(row.script))
            std::isdigit(word[0]) != 0 ? sim::runFor(std::stoi(word)) : music.setCommand(word);
        EXPECT_EQ(music.mode(), row.mode) << row.script << ", " << row.file;
        int plays = 0;
        for (; music.mode() == 526; plays += 10) sim::runFor(10);
        EXPECT_EQ(plays, row.plays) << row.script;
    }
}

}  // namespace
