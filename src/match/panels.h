#pragma once

#include "platform/controls.h"

// What the dialogs of the match have in common.

constexpr platform::Color panelGrey = 0xC0C0C0;
constexpr platform::Color panelOrange = 0x0040C0;  ///< Red 192, green 64.
constexpr int outerBevel = 2;                      ///< Pixels.

constexpr platform::PanelLook outerLook{platform::Bevel::Raised, platform::Bevel::Inset, outerBevel, panelGrey, 0,
                                        platform::Align::Center};
constexpr platform::PanelLook raisedLook(platform::Color fore) {
    return {platform::Bevel::Raised, platform::Bevel::None, 1, panelGrey, fore, platform::Align::Center};
}
constexpr platform::PanelLook insetLook(platform::Color fore, platform::Align align = platform::Align::Center) {
    return {platform::Bevel::Inset, platform::Bevel::None, 1, panelGrey, fore, align};
}
constexpr platform::PanelLook flatLook(platform::Color fore, platform::Align align = platform::Align::Center) {
    return {platform::Bevel::None, platform::Bevel::None, 1, panelGrey, fore, align};
}

/// Gives a form the size of its outer panel, as the sizing of forms makes it, and centres it over the main window.
void gsFitForm(platform::Form& form, const platform::Place& outer);
