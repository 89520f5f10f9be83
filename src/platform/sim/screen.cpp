#include <algorithm>

#include "platform/shared/twips.h"
#include "platform/sim/state.h"

namespace sim {

platform::Surface screen() {
    const auto& forms = state().forms;
    const auto main = std::find_if(forms.begin(), forms.end(), [](const auto* form) { return !form->modal; });
    if (main == forms.end()) return {};
    platform::Surface result = (*main)->surface;
    for (const auto* form : forms)
        if (form->modal)
            platform::BitBlt(result, platform::toPixels(form->left - (*main)->left),
                             platform::toPixels(form->top - (*main)->top), form->surface.width(),
                             form->surface.height(), form->surface, 0, 0, platform::SRCCOPY);
    return result;
}

}  // namespace sim
