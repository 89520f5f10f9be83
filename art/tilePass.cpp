#include "tilePass.h"

#include <array>

namespace {

/// How far the outline stands back from the side, by line from the top or bottom edge.
constexpr std::array cornerCut = {5, 3, 2, 1, 1};

int cutOf(int y) {
    const int line = std::min(y, passHeight - 1 - y);
    return line < static_cast<int>(cornerCut.size()) ? cornerCut[line] : 0;
}

}  // namespace

void paintPass(QPainter& painter) {
    for (int y = 0; y < passHeight; ++y) {
        painter.fillRect(cutOf(y), y, passWidth - 2 * cutOf(y), 1, QColor(0x5A, 0x1A, 0x12));
    }
    QFont font("Kaushan Script");
    font.setPixelSize(24);
    painter.setFont(font);
    painter.setPen(QColor(0xF2, 0xC8, 0x60));
    painter.drawText(QRect(0, 0, passWidth, passHeight), Qt::AlignCenter, "Pass");
}

void paintPassMask(QPainter& painter) {
    for (int y = 0; y < passHeight; ++y) {
        painter.fillRect(0, y, cutOf(y), 1, Qt::white);
        painter.fillRect(passWidth - cutOf(y), y, cutOf(y), 1, Qt::white);
    }
}
