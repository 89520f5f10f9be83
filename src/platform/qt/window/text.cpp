#include "platform/shared/text.h"

#include <QPainter>

#include "platform/qt/window/fonts.h"
#include "platform/qt/window/images.h"

namespace platform {

void drawText(Surface& surface, int x, int y, const std::string& text, const Font& font, Color color) {
    QImage canvas = qt::canvasOf(surface);
    if (canvas.isNull() || text.empty()) return;
    const qt::Lettering& lettering = qt::letteringOf(font);
    QPainter painter(&canvas);
    painter.setFont(lettering.font);
    painter.setPen(qt::colorOf(color));
    painter.drawText(x, y + lettering.metrics.ascent(), QString::fromStdString(text));
}

int measureText(const std::string& text, const Font& font) {
    return qt::letteringOf(font).metrics.horizontalAdvance(QString::fromStdString(text));
}

}  // namespace platform
