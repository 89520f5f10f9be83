#include "platform/help.h"

#include "platform/sim/state.h"

namespace platform {

void WinHelpA(Form& /*window*/, const std::string& file, uint32_t command, uint32_t /*data*/) {
    if (command == HELP_INDEX) sim::note("help", file);
}

void setHelpPictures(MakeHelpPicture /*make*/) {}

}  // namespace platform
