#include "platform/sim/state.h"

namespace sim {

platform::Surface screen() {
    const auto* const main = platform::desk().main();
    if (main == nullptr) return {};
    platform::Surface result = main->surface;
    for (const auto* dialog : platform::desk().dialogs())
        platform::BitBlt(result, platform::toPixels(dialog->left - main->left),
                         platform::toPixels(dialog->top - main->top), dialog->surface.width(), dialog->surface.height(),
                         dialog->surface, 0, 0, platform::SRCCOPY);
    return result;
}

}  // namespace sim
