#include "platform/qt/sound/module/music.h"

#include <cstdlib>
#include <new>
#include <sstream>

#include "platform/base/files.h"
#include "platform/qt/sound/module/mixer.h"
#include "platform/qt/sound/module/samples.h"

namespace platform::qt {
namespace {

constexpr double gain = 0.73;       // of the synthesizer, whose own is 0.2; the game's piece then has -23 LUFS
constexpr int voices = 96;          // that sound at once at most
constexpr int drumChannel = 9;      // counted from 0
constexpr int midiChannels = 16;    // in a piece
constexpr int blockFrames = 64;     // the synthesizer's own step
constexpr double scanSpeed = 1000;  // times as fast as the piece is played
constexpr int scanSeconds = 4;      // at that speed; what lasts longer is no piece
constexpr int fadeFrames = sampleRate / 50;
constexpr int echoSeconds = 3;  // that the hall rings at most

constexpr int programChange = 0xC0;  // types of events
constexpr int controlChange = 0xB0;
constexpr int noteOn = 0x90;
constexpr int bankSelect = 0;  // controllers
constexpr int bankSelectFine = 32;
constexpr int resetControllers = 121;

/// Where desktops keep the sound font that is theirs, and then the fonts that may lie there without being it.
constexpr const char* knownFonts[] = {
    "/usr/share/sounds/sf3/default-GM.sf3",
    "/usr/share/sounds/sf2/default-GM.sf2",
    "/usr/share/soundfonts/default.sf2",
    "/usr/share/sounds/sf3/FluidR3Mono_GM.sf3",
    "/usr/share/sounds/sf3/MuseScore_General_Lite.sf3",
    "/usr/share/sounds/sf2/FluidR3_GM.sf2",
    "/usr/share/sounds/sf2/TimGM6mb.sf2",
    "/usr/share/soundfonts/FluidR3_GM.sf2",
};

/// The fonts to try, the best first. The list that SDL programs take from the environment goes before all others.
std::vector<std::string> fontFiles() {
    const char* const list = std::getenv("SDL_SOUNDFONTS");
    if (list == nullptr) return {std::begin(knownFonts), std::end(knownFonts)};
    std::vector<std::string> files;
    std::istringstream in(list);
    for (std::string file; std::getline(in, file, ':');) files.push_back(file);
    return files;
}

/// Chooses instruments as a piece asks for them, and keeps each one that plays a note in memory.
int takeInstruments(void* data, fluid_midi_event_t* event) {
    auto* const synth = static_cast<fluid_synth_t*>(data);
    const int channel = fluid_midi_event_get_channel(event);
    const int control = fluid_midi_event_get_control(event);
    int font = 0, bank = 0, program = 0;
    switch (fluid_midi_event_get_type(event)) {
        case programChange:
            return fluid_synth_handle_midi_event(synth, event);
        case controlChange:
            if (control == bankSelect || control == bankSelectFine) return fluid_synth_handle_midi_event(synth, event);
            break;
        case noteOn:
            fluid_synth_get_program(synth, channel, &font, &bank, &program);
            if (font == 0) {  // The piece leaves the choice to the synthesizer.
                fluid_synth_program_change(synth, channel, 0);
                fluid_synth_get_program(synth, channel, &font, &bank, &program);
            }
            if (font != 0) fluid_synth_pin_preset(synth, font, bank, program);
            break;
        default:
            break;
    }
    return FLUID_OK;
}

void renderFrames(fluid_synth_t* synth, float* samples, int frames) {
    fluid_synth_write_float(synth, frames, samples, 0, channels, samples, 1, channels);
}

}  // namespace

bool Music::load(const std::string& file) {
    if (isLoaded(file)) return true;
    file_.clear();
    player_.reset();
    piece_ = contentsWithin(file, largestPiece);
    if (piece_.empty() || !loadFont() || !loadInstruments()) return false;
    file_ = file;
    return true;
}

bool Music::loadFont() {
    if (synth_) return true;
    for (const int level : {FLUID_PANIC, FLUID_ERR, FLUID_WARN, FLUID_INFO, FLUID_DBG})
        fluid_set_log_function(level, nullptr, nullptr);
    settings_.reset(new_fluid_settings());
    fluid_settings_setnum(settings_.get(), "synth.sample-rate", sampleRate);
    fluid_settings_setnum(settings_.get(), "synth.gain", gain);
    fluid_settings_setint(settings_.get(), "synth.polyphony", voices);
    fluid_settings_setint(settings_.get(), "synth.dynamic-sample-loading", 1);
    fluid_settings_setint(settings_.get(), "synth.lock-memory", 0);
    fluid_settings_setint(settings_.get(), "player.reset-synth", 0);  // Else a restart would cut what rings.
    fluid_settings_setstr(settings_.get(), "player.timing-source", "sample");
    Synth synth(new_fluid_synth(settings_.get()));
    for (const std::string& font : fontFiles()) {
        if (!isOrdinaryFile(font) || fluid_synth_sfload(synth.get(), font.c_str(), 0) == FLUID_FAILED) continue;
        synth_ = std::move(synth);
        return true;
    }
    return false;
}

// The instruments are loaded ahead, so that no note waits for its samples: the piece is rushed through without a sound.
bool Music::loadInstruments() {
    const Player player = makePlayer();
    fluid_player_set_playback_callback(player.get(), takeInstruments, synth_.get());
    fluid_player_set_tempo(player.get(), FLUID_PLAYER_TEMPO_INTERNAL, scanSpeed);
    fluid_player_play(player.get());
    std::vector<float> block(blockFrames * channels);
    for (int frame = 0; frame < scanSeconds * sampleRate; frame += blockFrames) {
        renderFrames(synth_.get(), block.data(), blockFrames);
        const int ticks = fluid_player_get_total_ticks(player.get());
        if (ticks <= 0) return false;
        if (fluid_player_get_current_tick(player.get()) >= ticks) return true;
    }
    return false;
}

Music::Player Music::makePlayer() const {
    Player player(new_fluid_player(synth_.get()));
    if (!player || fluid_player_add_mem(player.get(), piece_.data(), piece_.size()) != FLUID_OK) throw std::bad_alloc();
    return player;
}

void Music::begin(uint64_t performance) {
    if (!sounding_) forgetControllers();
    player_ = makePlayer();
    performance_ = performance;
    resume();
}

void Music::resume() {
    fluid_player_play(player_.get());
    going_ = true;
    sounding_ = true;
}

std::vector<float> Music::silence() {
    if (!sounding_) return {};
    std::vector<float> rest(fadeFrames * channels);
    renderFrames(synth_.get(), rest.data(), fadeFrames);
    for (size_t i = 0; i < rest.size(); ++i) rest[i] *= 1 - static_cast<float>(i) / static_cast<float>(rest.size());
    fluid_player_stop(player_.get());
    fluid_synth_all_sounds_off(synth_.get(), -1);
    std::vector<float> echo(sampleRate / 10 * channels);  // of the hall, which would be heard at the next beginning
    for (int tenth = 0; tenth < echoSeconds * 10; ++tenth) {
        renderFrames(synth_.get(), echo.data(), sampleRate / 10);
        if (isSilent(echo)) break;
    }
    going_ = false;
    sounding_ = false;
    return rest;
}

// A piece that was cut off may have left a pedal down or a voice turned low.
void Music::forgetControllers() {
    for (int channel = 0; channel < midiChannels; ++channel) fluid_synth_cc(synth_.get(), channel, resetControllers, 0);
}

void Music::render(float* samples, int frames) {
    if (!sounding_) return;
    renderFrames(synth_.get(), samples, frames);
    if (going_ && fluid_player_get_current_tick(player_.get()) >= fluid_player_get_total_ticks(player_.get()))
        going_ = false;
}

}  // namespace platform::qt
