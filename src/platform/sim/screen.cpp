#include <algorithm>

#include "platform/sim/state.h"
#include "platform/text.h"
#include "platform/twips.h"

namespace sim {
namespace {

using platform::Bevel;
using platform::Color;
using platform::Place;
using platform::Surface;

constexpr double lighter = 1.3, darker = 0.6;  // of a bevel's two sides, against the back colour
constexpr int captionMargin = 3;               // pixels

Color shaded(Color color, double factor) {
    Color result = 0;
    for (int shift = 0; shift < 24; shift += 8)
        result |= static_cast<Color>(std::min(255.0, ((color >> shift) & 0xFF) * factor)) << shift;
    return result;
}

void fill(Surface& surface, const Place& place, Color color) {
    const int left = std::clamp(place.left, 0, surface.width());
    const int right = std::clamp(place.left + place.width, left, surface.width());
    const int bottom = std::min(place.top + place.height, surface.height());
    for (int y = std::max(0, place.top); y < bottom; ++y)
        std::fill(surface.row(y) + left, surface.row(y) + right, platform::pixelOf(color));
}

Place inside(const Place& place, int border) {
    return {place.left + border, place.top + border, place.width - 2 * border, place.height - 2 * border};
}

/// A border of that width just inside the place.
void frame(Surface& surface, const Place& p, int width, Color topLeft, Color bottomRight) {
    for (int i = 0; i < width; ++i) {
        const Place line = inside(p, i);
        fill(surface, {line.left, line.top, line.width, 1}, topLeft);
        fill(surface, {line.left, line.top, 1, line.height}, topLeft);
        fill(surface, {line.left, line.top + line.height - 1, line.width, 1}, bottomRight);
        fill(surface, {line.left + line.width - 1, line.top, 1, line.height}, bottomRight);
    }
}

Place bevel(Surface& surface, const Place& place, Bevel kind, const platform::PanelLook& look) {
    if (kind == Bevel::None) return place;
    const Color light = shaded(look.back, lighter);
    const Color dark = shaded(look.back, darker);
    const bool raised = kind == Bevel::Raised;
    frame(surface, place, look.bevelWidth, raised ? light : dark, raised ? dark : light);
    return inside(place, look.bevelWidth);
}

void paintCaption(Surface& surface, const Control& control, const Place& place) {
    const int slack = place.width - platform::measureText(control.caption, control.font);
    const int left = place.left + (control.look.align == platform::Align::Center ? slack / 2 : captionMargin);
    const int top = place.top + (place.height - lineHeight(control.font)) / 2;
    platform::drawText(surface, left, top, control.caption, control.font, control.look.fore);
}

void paintArrows(Surface& surface, const Place& place, Color color) {
    const int middle = place.left + place.width / 2;
    const int size = place.height / 6;
    for (int i = 0; i < size; ++i) {
        const int across = 2 * i + 1;
        fill(surface, {middle - i, place.top + place.height / 4 - size / 2 + i, across, 1}, color);
        fill(surface, {middle - i, place.top + place.height * 3 / 4 + size / 2 - i, across, 1}, color);
    }
}

void paint(Surface& surface, const Control& control) {
    if (!control.visible) return;
    if (control.kind == Control::Kind::Shape)
        return frame(surface, control.place, control.look.bevelWidth, control.look.fore, control.look.fore);
    fill(surface, control.place, control.look.back);
    const Place within = bevel(surface, control.place, control.look.outer, control.look);
    const Place face = bevel(surface, within, control.look.inner, control.look);
    if (control.kind == Control::Kind::Spin)
        paintArrows(surface, face, control.look.fore);
    else
        paintCaption(surface, control, face);
}

Surface picture(const platform::Form::Impl& form) {
    Surface result = form.surface;
    if (result.hasPixels())
        for (const Control* control : form.controls) paint(result, *control);
    return result;
}

}  // namespace

platform::Surface screen() {
    const auto& forms = state().forms;
    const auto main = std::find_if(forms.begin(), forms.end(), [](const auto* form) { return !form->modal; });
    if (main == forms.end()) return {};
    Surface result = picture(**main);
    for (const auto* form : forms) {
        if (!form->modal) continue;
        const Surface dialog = picture(*form);
        platform::BitBlt(result, platform::toPixels(form->left - (*main)->left),
                         platform::toPixels(form->top - (*main)->top), dialog.width(), dialog.height(), dialog, 0, 0,
                         platform::SRCCOPY);
    }
    return result;
}

}  // namespace sim
