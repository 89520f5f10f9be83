#include "platform/help.h"

#include "platform/sim/state.h"

const std::string& sim::helpFile() { return state().helpFile; }

void sim::closeHelp() {
    if (state().helpFile.empty()) return;
    note("help closes");
    state().helpFile.clear();
}

namespace platform {

void WinHelpA(Form& /*window*/, const std::string& file, uint32_t command, uint32_t /*data*/) {
    if (command == HELP_QUIT) sim::closeHelp();
    if (command != HELP_INDEX) return;
    sim::note("help", file);
    sim::state().helpFile = file;
}

void setHelpPictures(MakeHelpPicture /*make*/) {}

}  // namespace platform
