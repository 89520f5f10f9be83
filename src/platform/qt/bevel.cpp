#include "platform/qt/bevel.h"

#include <QPainter>
#include <utility>

namespace platform::qt {
namespace {

constexpr double lightPart = 0.75;
constexpr double darkPart = 0.45;
constexpr double focusPart = 0.6;

}  // namespace

QColor towards(const QColor& color, const QColor& other, double part) {
    const auto mixed = [part](int from, int to) { return from + static_cast<int>((to - from) * part); };
    return QColor(mixed(color.red(), other.red()), mixed(color.green(), other.green()),
                  mixed(color.blue(), other.blue()));
}

QRect paintBevel(QPainter& painter, const QRect& rect, Bevel bevel, int width, const QColor& back) {
    if (bevel == Bevel::None) return rect;
    QColor topLeft = towards(back, Qt::white, lightPart);
    QColor bottomRight = towards(back, Qt::black, darkPart);
    if (bevel == Bevel::Inset) std::swap(topLeft, bottomRight);
    QRect line = rect;
    for (int i = 0; i < width; ++i, line.adjust(1, 1, -1, -1)) {
        painter.fillRect(line.left(), line.top(), line.width(), 1, topLeft);
        painter.fillRect(line.left(), line.top(), 1, line.height(), topLeft);
        painter.fillRect(line.left(), line.bottom(), line.width(), 1, bottomRight);
        painter.fillRect(line.right(), line.top(), 1, line.height(), bottomRight);
    }
    return line;
}

void paintFocus(QPainter& painter, const QRect& rect, const QColor& back) {
    painter.setPen(QPen(towards(back, Qt::black, focusPart), 1, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect.adjusted(0, 0, -1, -1));
}

}  // namespace platform::qt
