#include "platform/sound.h"

#include "platform/base/files.h"
#include "platform/qt/sound/soundThread.h"
#include "platform/shared/sequencer.h"

namespace platform {
namespace sequencer {

bool canOpen(const std::string& file) { return isOrdinaryFile(file); }
uint64_t begin(const std::string& file) { return qt::soundThread().begin(file); }
void pause(uint64_t performance) { qt::soundThread().setPlaying(performance, false); }
void resume(uint64_t performance) { qt::soundThread().setPlaying(performance, true); }
State stateOf(uint64_t performance) { return qt::soundThread().stateOf(performance); }

}  // namespace sequencer

bool sndPlaySoundA(const std::string& file, uint32_t /*flags*/) {
    if (!isOrdinaryFile(file)) return false;
    qt::soundThread().playSound(file);
    return true;
}

}  // namespace platform
