#include "platform/sound.h"

#include <map>

#include "platform/base/uncaught.h"
#include "platform/shared/sequencer.h"

namespace platform {

MMControl::MMControl() {
    statusTimer_.onTick = [this] { callSlot(onStatusUpdate); };
}

MMControl::~MMControl() { close(); }

void MMControl::setUpdateInterval(int milliseconds) {
    statusTimer_.setInterval(milliseconds);
    statusTimer_.setEnabled(milliseconds > 0);
}

void MMControl::setCommand(const std::string& command) {
    static const std::map<std::string, void (MMControl::*)()> commands = {
        {"Open", &MMControl::open},   {"Play", &MMControl::play},   {"Stop", &MMControl::stop},
        {"Next", &MMControl::rewind}, {"Prev", &MMControl::rewind}, {"Close", &MMControl::close},
    };
    command_ = command;
    if (const auto found = commands.find(command); found != commands.end()) (this->*found->second)();
}

int32_t MMControl::mode() const {
    if (!playing_) return restingMode_;
    const sequencer::State state = sequencer::stateOf(performance_);
    if (state == sequencer::State::Failed) return modeNotReady;
    return state == sequencer::State::Going ? modePlaying : modeStopped;
}

void MMControl::open() {
    if (restingMode_ != modeNotReady || deviceType_ != "Sequencer") return;
    piece_ = fileName_;
    if (piece_.empty())
        restingMode_ = modeOpen;
    else if (sequencer::canOpen(piece_))
        restingMode_ = modeStopped;
}

void MMControl::play() {
    if (restingMode_ != modeStopped || playing_) return;
    playing_ = true;
    if (performance_ == 0)
        performance_ = sequencer::begin(piece_);
    else
        sequencer::setPlaying(performance_, true);
}

void MMControl::stop() {
    if (playing_) sequencer::setPlaying(performance_, false);
    playing_ = false;
}

void MMControl::rewind() {
    const bool goesOn = mode() == modePlaying;
    playing_ = false;
    performance_ = 0;
    if (goesOn) play();
}

void MMControl::close() {
    stop();
    performance_ = 0;
    restingMode_ = modeNotReady;
}

}  // namespace platform
