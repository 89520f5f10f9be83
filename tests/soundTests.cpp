// What comes out of the sound device: the real sound font, SDL's disk driver, pieces of a few notes; then the game on
// the real window, as it is heard.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <fstream>
#include <functional>
#include <optional>
#include <string>

#include "frmMain.h"
#include "match/frmChooseSeat.h"
#include "platform/desktop.h"
#include "platform/qt/sound/soundThread.h"
#include "platform/qt/window/modules.h"
#include "platform/sound.h"
#include "tests/application.h"
#include "tests/ear.h"
#include "tests/soundFiles.h"

constexpr size_t unobtainable = 700'001;  // bytes

/// Memory of one size can't be had.
void* operator new(size_t size) {
    void* const memory = size == unobtainable ? nullptr : std::malloc(size);
    return memory != nullptr ? memory : throw std::bad_alloc();
}

namespace {

using platform::qt::SoundThread;
using platform::sequencer::State;
using namespace std::chrono_literals;

constexpr float audible = 0.002F;

class Sound : public testing::Test {
  protected:
    ~Sound() override {
        thread_.reset();
        for (const char* const name : {"SDL_DISKAUDIODELAY", "ALSA_CONFIG_PATH"}) unsetenv(name);
        std::filesystem::remove_all(folder_);
    }

    std::string write(const std::string& name, const std::string& contents) {
        std::ofstream(folder_ / name, std::ios::binary) << contents;
        return folder_ / name;
    }

    /// Waits until that is so; fails the test if it never gets so.
    static void await(const char* what, const std::function<bool()>& condition) {
        const auto end = std::chrono::steady_clock::now() + 20s;
        while (!condition()) {
            ASSERT_LT(std::chrono::steady_clock::now(), end) << "waited in vain for " << what;
            QCoreApplication::processEvents();  // if there is one
            std::this_thread::sleep_for(2ms);
        }
    }

    void awaitFrames(size_t count) {
        await("frames", [&, end = ear_->now() + count] { return ear_->now() >= end; });
    }

    uint64_t beginAndAwaitSound(const std::string& file) {
        const size_t before = ear_->now();
        const uint64_t performance = thread_->begin(file);
        await("music", [&] { return ear_->heard().peak(before, ear_->now()) > audible; });
        return performance;
    }

    std::filesystem::path folder_ = std::filesystem::temp_directory_path() / ("sounds" + std::to_string(getpid()));
    const bool made_ = std::filesystem::create_directories(folder_);
    const std::string music_ = write("organ.mid", piece(organ, {{0, 9000, 60}}, 9000));
    std::optional<Ear> ear_{folder_};
    std::unique_ptr<SoundThread> thread_ = std::make_unique<SoundThread>();
};

TEST_F(Sound, MusicBeginsAtOnceAndDiesAwaySoonAfterItsEnd) {
    constexpr struct {
        double from, to;    // milliseconds before the silence
        float least, most;  // parts of the loudness before
    } fade[] = {{30, 22, 0.7F, 1.2F}, {14, 6, 0.3F, 0.7F}, {1, 0, 0, 0.1F}};
    uint64_t performance = beginAndAwaitSound(music_);
    for (int time = 0; time < 2; ++time) {
        awaitFrames(framesIn(200));
        const size_t stopped = ear_->now();
        thread_->setPlaying(performance, false);
        awaitFrames(framesIn(600));
        const Heard heard = ear_->heard();
        EXPECT_GT(heard.peak(stopped - framesIn(100), framesIn(100)), audible) << "it plays until it is stopped";
        const size_t silent = heard.lastAbove(0);
        EXPECT_LT(silent, stopped + framesIn(300)) << "silent after the stop";
        const auto level = [&](double from, double to) {
            return heard.peak(silent - framesIn(from), framesIn(from - to));
        };
        for (const auto& part : fade) {
            const float share = level(part.from, part.to) / level(100, 40);
            EXPECT_GE(share, part.least) << part.from << " ms before the silence";
            EXPECT_LE(share, part.most) << part.from << " ms before the silence";
        }
        const size_t begun = ear_->now();
        performance = thread_->begin(music_);
        awaitFrames(framesIn(600));
        const size_t sounds = ear_->heard().firstAbove(audible, begun);
        EXPECT_GT(sounds, begun) << "silent until it begins";
        EXPECT_LT(sounds, begun + framesIn(300)) << "heard after the beginning";
    }
}

TEST_F(Sound, DeviceIsOpenOnlyWhileSomethingSoundsOrRests) {
    constexpr int rest = 1800;  // milliseconds between the notes
    const auto file = write("rest.mid", piece(woodBlock, {{0, 100, 60}, {rest, 100, 60}}, 2000));
    EXPECT_FALSE(ear_->deviceOpen());
    const uint64_t performance = beginAndAwaitSound(file);
    awaitFrames(framesIn(300));
    const size_t held = ear_->now();
    thread_->setPlaying(performance, false);
    awaitFrames(framesIn(500));
    const size_t wait = ear_->now() - held;
    thread_->setPlaying(performance, true);
    await("the end", [&] { return thread_->stateOf(performance) == State::Ended; });
    await("the device to close", [&] { return !ear_->deviceOpen(); });
    const Heard heard = ear_->heard();
    const size_t first = heard.firstAbove(audible);
    const size_t second = heard.firstAbove(audible, first + framesIn(rest / 2.0));
    EXPECT_NEAR(second - first, framesIn(rest) + wait, framesIn(100)) << "it goes on where it was held";
    const size_t silence = heard.frames.size() - heard.lastAbove(audible);
    EXPECT_GT(silence, framesIn(900)) << "a device isn't closed at once, since music may go on";
    EXPECT_LT(silence, framesIn(2500));
}

TEST_F(Sound, PieceThatIsBegunAnewAfterItsEndRingsOn) {
    const auto file = write("bell.mid", piece(bell, {{300, 100, 60}}, 600));
    size_t first = 0, lasted = 0;
    const auto playThreeTimes = [&] {
        const size_t begun = ear_->now();
        uint64_t performance = beginAndAwaitSound(file);
        first = ear_->heard().firstAbove(audible, begun);
        for (int time = 0; time < 3; ++time) {
            await("the end", [&] { return thread_->stateOf(performance) == State::Ended; });
            if (time < 2) performance = thread_->begin(file);
        }
        lasted = ear_->now() - first;
    };
    // A busy machine may be late with the next beginning, and then the bell has rung out.
    playThreeTimes();
    for (int tries = 0; lasted > framesIn(1800) && tries < 20; ++tries) awaitFrames(framesIn(3000)), playThreeTimes();
    const Heard heard = ear_->heard();
    for (size_t at = first; at < first + framesIn(1500); at += framesIn(20))
        ASSERT_GT(heard.peak(at, framesIn(20)), audible / 4) << "silence " << (at - first) / framesIn(1) << " ms on";
}

TEST_F(Sound, MusicThatWasCutOffLeavesNothingBehind) {
    struct {
        const char* what;
        std::string cut;
        std::string next;
        size_t silent, heardBy;  // milliseconds of what is played next
    } const rows[] = {
        {"no echo in the hall", piece(bell, {{0, 5000, 48}}, 9000), piece(bell, {{600, 100, 60}}, 900), 500, 900},
        {"no voice turned low", piece(organ, {{0, 300, 60}}, 9000, {'\xB0', 11, 0}), piece(organ, {{0, 900, 60}}, 1000),
         0, 300},
    };
    for (const auto& row : rows) {
        const auto cut = write("cut.mid", row.cut);
        const uint64_t performance = beginAndAwaitSound(cut);
        awaitFrames(framesIn(700));
        thread_->setPlaying(performance, false);
        awaitFrames(framesIn(500));
        const size_t begun = ear_->now();
        thread_->begin(write("next.mid", row.next));
        awaitFrames(framesIn(1200));
        const Heard heard = ear_->heard();
        EXPECT_LT(heard.peak(begun, framesIn(static_cast<double>(row.silent))), audible / 10) << row.what;
        EXPECT_LT(heard.firstAbove(audible, begun), begun + framesIn(static_cast<double>(row.heardBy))) << row.what;
    }
}

TEST_F(Sound, ThunderSoundsWithMusicAndWithout) {
    const auto thunder = write("thunder.wav", plateau(500)), large = write("large.wav", plateau(100'000));
    EXPECT_FALSE(platform::sndPlaySoundA(large, 0)) << "as if it weren't there";
    constexpr float level = 0.4F;  // of left and right together, where the plateau is at 0.5
    for (const bool withMusic : {false, true}) {
        if (withMusic) beginAndAwaitSound(music_);
        awaitFrames(withMusic ? framesIn(500) : 0);
        const size_t before = ear_->now();
        thread_->playSound(large);
        thread_->playSound(thunder);
        await("thunder", [&] { return ear_->now() > before + framesIn(900); });
        const Heard heard = ear_->heard();
        size_t begin = before;
        while (begin < heard.frames.size() && heard.mean(begin, framesIn(50)) < level) begin += framesIn(5);
        EXPECT_LT(begin, before + framesIn(300)) << "music " << withMusic;
        for (size_t at = begin; at < begin + framesIn(400); at += framesIn(20))
            EXPECT_GT(heard.mean(at, framesIn(50)), level) << "music " << withMusic;
        EXPECT_LT(std::fabs(heard.mean(begin + framesIn(600), framesIn(50))), level / 4) << "it is over";
        if (!withMusic) continue;
        for (size_t at = before - framesIn(200); at < before + framesIn(900); at += framesIn(20)) {
            const auto [least, most] = std::ranges::minmax(heard.part(at, framesIn(20)));
            EXPECT_GT(most - least, audible) << "a break in the music";
        }
    }
}

TEST_F(Sound, MusicAndThunderHaveTheirLoudness) {
    setenv("SDL_DISKAUDIODELAY", "0", 1);
    // As decibels of its power; a meter finds -23 LUFS in the whole piece.
    struct {
        const char* file;
        double milliseconds;  // from its first sound
        double decibels;
    } const rows[] = {{"mendel1.mid", 30000, -30.5}, {"Thunder2.wav", 400, -13}};
    for (const auto& row : rows) {
        const std::string file = std::string(VELMORA_ASSETS "/sounds/") + row.file;
        const size_t before = ear_->now();
        file.ends_with(".mid") ? void(thread_->begin(file)) : thread_->playSound(file);
        const auto begin = [&] { return ear_->heard().firstAbove(audible, before); };
        await(row.file, [&] { return ear_->now() > begin() + framesIn(row.milliseconds); });
        thread_ = std::make_unique<SoundThread>();
        EXPECT_NEAR(ear_->heard().level(begin(), framesIn(row.milliseconds)), row.decibels, 1) << row.file;
    }
}

TEST_F(Sound, SoundsAtOnceAreTurnedDownWithoutAClick) {
    constexpr float loudest = 2;  // left and right together
    const auto once = write("once.wav", plateau(300));
    const auto longer = write("longer.wav", plateau(1200));
    thread_->playSound(longer);
    await("sound", [&] { return ear_->heard().firstAbove(audible) + framesIn(50) < ear_->now(); });
    for (int sound = 0; sound < 5; ++sound) thread_->playSound(once);
    await("silence", [&] { return !ear_->deviceOpen(); });
    const Heard heard = ear_->heard();
    EXPECT_LE(heard.peak(0, heard.frames.size()), 0.9F * loudest);
    const size_t begin = heard.firstAbove(0.8F * loudest), end = heard.lastAbove(0.8F * loudest) + framesIn(10);
    const auto highestStep = [&](size_t from, size_t to) {
        float step = 0;
        for (size_t at = from + 1; at < to; ++at)
            step = std::max(step, std::fabs(heard.frames[at] - heard.frames[at - 1]));
        return step;
    };
    EXPECT_LT(highestStep(begin - framesIn(20), begin), 0.02F) << "a click before the loud moment";
    EXPECT_LT(highestStep(end, end + framesIn(400)), 0.01F) << "a click after it";
    EXPECT_LT(2 * heard.mean(end, framesIn(10)), heard.mean(end + framesIn(400), framesIn(10))) << "at once loud again";
}

TEST_F(Sound, WhatCannotBeHeardIsSilenceAndNothingIsSaid) {
    setenv("ALSA_CONFIG_PATH", "/dev/null", 1);
    const std::string notes = piece(organ, {{0, 900, 60}}, 1000);
    const std::string good = write("good.mid", notes);
    const std::string garbage(5000, '\x5A');
    std::filesystem::create_directory(folder_ / "folder");
    mkfifo((folder_ / "pipe").c_str(), S_IRUSR | S_IWUSR);
    const auto inFolder = [&](const char* name) { return (folder_ / name).string(); };
    struct {
        const char* what;
        std::string file;
        const char* variable = "UNUSED";
        std::string value = "";
    } const rows[] = {
        {"no piece", inFolder("none")},
        {"an empty piece", write("empty.mid", "")},
        {"a corrupt piece", write("garbage.mid", garbage)},
        {"a piece that is cut off", write("short.mid", notes.substr(0, 20))},
        {"a piece that is too large", write("large.mid", notes + std::string(1 << 20, 'x'))},
        {"a folder for a piece", inFolder("folder")},
        {"a pipe for a piece", inFolder("pipe")},
        {"no font", good, "SDL_SOUNDFONTS", inFolder("none")},
        {"a corrupt font", good, "SDL_SOUNDFONTS", write("garbage.sf3", garbage)},
        {"a corrupt font that looks like one", good, "SDL_SOUNDFONTS",
         write("head.sf3", "RIFF\x10\x27\x01\x01sfbk" + garbage)},
        {"a pipe for a font", good, "SDL_SOUNDFONTS", inFolder("pipe")},
        {"no such driver", good, "SDL_AUDIODRIVER", "none"},
        {"no device", good, "SDL_AUDIODRIVER", "alsa"},
        {"a device that fails to open", good, "SDL_DISKAUDIOFILE", inFolder("folder")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        thread_ = std::make_unique<SoundThread>();
        setenv(row.variable, row.value.c_str(), 1);
        std::error_code unreadable;
        EXPECT_EQ(platform::sequencer::canOpen(row.file), std::filesystem::file_size(row.file, unreadable) <= 1 << 20);
        testing::internal::CaptureStderr();
        const uint64_t performance = thread_->begin(row.file);
        await("the failure", [&] { return thread_->stateOf(performance) == State::Failed; });
        const std::string said = testing::internal::GetCapturedStderr();
        EXPECT_TRUE(said.empty() || std::string_view(row.variable) == "SDL_SOUNDFONTS") << said;
        thread_->playSound(row.file);
        thread_->setPlaying(performance, false);
        EXPECT_EQ(ear_->heard().peak(0, ear_->now()), 0);
        unsetenv(row.variable);
        ear_->attend();
        beginAndAwaitSound(good);
        thread_.reset();
        ear_.emplace(folder_);
    }
}

TEST_F(Sound, WhatFindsNoMemoryIsAbsent) {
    const auto asLarge = [&](const char* name, const std::string& contents) {
        std::filesystem::resize_file(write(name, contents), unobtainable - 1);
        return folder_ / name;
    };
    uint64_t performance = beginAndAwaitSound(music_);
    thread_->playSound(asLarge("thunder.wav", plateau(500)));
    awaitFrames(framesIn(300));
    EXPECT_EQ(thread_->stateOf(performance), State::Going);
    performance = thread_->begin(asLarge("large.mid", piece(organ, {{0, 900, 60}}, 1000)));
    await("the failure", [&] { return thread_->stateOf(performance) == State::Failed; });
    await("silence", [&] { return !ear_->deviceOpen(); });
    beginAndAwaitSound(music_);
}

TEST_F(Sound, DeviceThatVanishesIsOpenedAnewByTheNextBeginning) {
    const auto file = write("organ.mid", piece(organ, {{0, 900, 60}}, 1000));
    uint64_t performance = beginAndAwaitSound(file);
    ear_.reset();
    await("the end", [&] { return thread_->stateOf(performance) == State::Ended; });
    ear_.emplace(folder_);
    performance = beginAndAwaitSound(file);
    EXPECT_EQ(thread_->stateOf(performance), State::Going);
}

TEST_F(Sound, LastOfManyWishesCounts) {
    const auto thunder = write("thunder.wav", plateau(50));
    for (const bool playing : {true, false}) {
        uint64_t performance = 0;
        for (int press = 0; press < 60; ++press) {
            if (press % 2 == 0)
                performance = thread_->begin(music_);
            else
                thread_->setPlaying(performance, false);
            if (press % 3 == 0) thread_->playSound(thunder);
            thread_->stateOf(performance);
            std::this_thread::sleep_for(std::chrono::milliseconds(press));
        }
        if (playing) {
            beginAndAwaitSound(music_);
            thread_->setPlaying(performance, false);  // which is another one's by now
            awaitFrames(framesIn(500));
            const size_t now = ear_->now();
            awaitFrames(framesIn(300));
            EXPECT_GT(ear_->heard().peak(now, framesIn(300)), audible);
        } else {
            await("silence", [&] { return !ear_->deviceOpen(); });
        }
    }
}

TEST_F(Sound, ProgramMayEndWhileTheFontIsLoading) {
    ear_.reset();
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    for (const auto wait : {0ms, 10ms, 40ms, 80ms, 150ms}) {
        const auto playFor = [&](SoundThread& thread) {
            thread.begin(music_);
            std::this_thread::sleep_for(wait);
        };
        EXPECT_EXIT((playFor(*thread_), platform::endProcess()), testing::ExitedWithCode(0), "");
        SoundThread thread;
        playFor(thread);
    }
}

class GameSound : public Sound {};

TEST_F(GameSound, MusicAndThunderAreHeard) {
    setUpApplication();
    auto game = gfrmMain.hold();
    game->form.show();
    QTimer person;
    QObject::connect(&person, &QTimer::timeout, [] {
        QWidget* const window = QApplication::activeWindow();
        if (window && gfrmChooseSeat.isOpen()) QTest::keyClick(window, Qt::Key_Enter);
    });
    person.start(10);
    game->tbrZQT_ButtonClick(Button::StartAnew);
    await("music", [&] { return ear_->heard().peak(0, ear_->now()) > audible; });
    game->tbrZQT_ButtonClick(Button::Music);
    await("the device to close", [&] { return !ear_->deviceOpen(); });
    const size_t before = ear_->now();
    game->mblnLightningShown = true;
    game->msDrawLightning();
    await("thunder", [&] { return ear_->heard().peak(before, ear_->now()) > 0.1F; });
    game.reset();
    gsClearAllForms();
}

TEST(Thunder, isWhatItsGeneratorMakes) {
    std::ostringstream file;
    file << std::ifstream(VELMORA_ASSETS "/sounds/Thunder2.wav", std::ios::binary).rdbuf();
    const std::vector<uint8_t> made = thunder::waveFile(thunder::makeSamples());
    EXPECT_TRUE(file.str() == std::string(made.begin(), made.end())) << "art/make makes another thunder";
}

TEST(Modules, WhatCannotBeLoadedHasNoEntryPoint) {
    using platform::qt::moduleEntry;
    EXPECT_NE(moduleEntry("velmora_sound.so", "makeMixer"), nullptr);
    EXPECT_EQ(moduleEntry("velmora_sound.so", "makeNothing"), nullptr);
    EXPECT_EQ(moduleEntry("velmora_nothing.so", "makeMixer"), nullptr);
    EXPECT_EQ(moduleEntry("CMakeCache.txt", "makeMixer"), nullptr);
}

}  // namespace
