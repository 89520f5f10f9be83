#pragma once

#include "platform/controls.h"

// The looks of the panels that a dialog is built of.

constexpr platform::Color panelOrange = 0x0040C0;  ///< Red 192, green 64.
constexpr int outerBevel = 2;                      ///< Pixels.

/// Of the panel that covers a dialog.
constexpr platform::PanelLook outerLook{platform::Bevel::Raised, platform::Bevel::Inset, outerBevel, 0,
                                        platform::Align::Center};
constexpr platform::PanelLook raisedLook(platform::Color fore) {
    return {platform::Bevel::Raised, platform::Bevel::None, 1, fore, platform::Align::Center};
}
constexpr platform::PanelLook insetLook(platform::Color fore, platform::Align align = platform::Align::Center) {
    return {platform::Bevel::Inset, platform::Bevel::None, 1, fore, align};
}
constexpr platform::PanelLook flatLook(platform::Color fore, platform::Align align = platform::Align::Center) {
    return {platform::Bevel::None, platform::Bevel::None, 1, fore, align};
}
