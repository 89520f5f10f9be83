#include <cmath>
#include <cstdlib>

#include "hiscores/scoreFile.h"
#include "materials.h"
#include "script.h"
#include "tableArt.h"

namespace tableArt {

namespace {

using namespace materials;

constexpr script::Ink giltInk{giltBright, gilt, qRgb(30, 14, 4)};
constexpr script::Ink ivoryInk{ivory, qRgb(214, 206, 180), qRgb(8, 28, 20)};
constexpr script::Ink lacquerInk{qRgb(150, 26, 30), qRgb(98, 12, 20), ivory};
constexpr script::Ink inkOnPaper{qRgb(58, 34, 26), qRgb(58, 34, 26), ivory};

enum class From { left, middle, right };

using Lettering = QPainterPath (*)(const QString&, double);

/// A line of fixed text: its baseline and where along it x stands.
struct Line {
    const char* words;
    From from;
    int x;
    int baseline;
    double size;
    Lettering lettering;
    const script::Ink* ink;
    double edgeWidth;
};

void paintLine(QPainter& painter, const Line& line) {
    const QPainterPath path = line.lettering(QString::fromUtf8(line.words), line.size);
    const QRectF bounds = path.boundingRect();
    const double start = line.from == From::left     ? bounds.left()
                         : line.from == From::middle ? bounds.center().x()
                                                     : bounds.right();
    script::paint(painter, path.translated(line.x - start, line.baseline), *line.ink, line.edgeWidth);
}

/// A level line of gilt that fades out at both ends, with a lacquer diamond in its middle.
void paintRule(QPainter& painter, const QPoint& middle, int reach) {
    QColor faded = QColor::fromRgb(gilt);
    faded.setAlpha(0);
    QLinearGradient line(middle.x() - reach, 0, middle.x() + reach, 0);
    line.setColorAt(0, faded);
    line.setColorAt(0.5, QColor::fromRgb(gilt));
    line.setColorAt(1, faded);
    painter.fillRect(middle.x() - reach, middle.y(), 2 * reach, 1, line);
    constexpr int radius = 5;
    const QRect square(-radius, -radius, 2 * radius + 1, 2 * radius + 1);
    lay(painter, middle + square.topLeft(), shaded(square, [](double x, double y) -> QRgb {
            const int away = cellAt(std::abs(x) + std::abs(y), 1);
            if (away > radius) return 0;
            return away < radius ? lacquerRed : cellAt(y, 1) < 0 ? giltBright : gilt;
        }));
}

/// Covers a whole picture with cloth inside a frame.
void paintFramedCloth(QPainter& painter, const QSize& size, int breadth) {
    const QRect all(QPoint(0, 0), size);
    const QRect inner = all.adjusted(breadth, breadth, -breadth, -breadth);
    lay(painter, {0, 0}, cloth(size, groundGreen));
    paintHollowShadow(painter, inner, 12, 0.45);
    paintFrame(painter, all, inner);
}

constexpr int breakDownFrame = 14;
constexpr int gridTop = breakDownPlaces::firstTop - 9;
constexpr int gridPitch = breakDownPlaces::pitch;
constexpr int gridRows = breakDownPlaces::rows;
constexpr int nameIndent = 10;
constexpr int gridWidth = 302;
constexpr int doublesFrom = 211;
constexpr QRect totals[] = {{198, 281, 130, 25}, {510, 281, 134, 25}};

constexpr Line breakDownLines[] = {
    {"Winning Hand Scoring Break Down", From::middle, 333, 35, 22, script::flowing, &giltInk, 1.2},
    {"Total Doubles", From::right, 188, 301, 18, script::flowing, &giltInk, 1.0},
    {"Point Total", From::right, 500, 301, 18, script::flowing, &giltInk, 1.0},
};

/// One column of the grid: rows in two shades, a gilt line round them and one between names and doubles.
void paintGridColumn(QPainter& painter, int left) {
    const QRect grid(left, gridTop, gridWidth, gridRows * gridPitch);
    for (int row = 0; row < gridRows; ++row) {
        const QColor shade = row % 2 == 0 ? QColor(0, 0, 0, 70) : QColor(0, 0, 0, 100);
        painter.fillRect(left, gridTop + row * gridPitch, gridWidth, gridPitch, shade);
    }
    const QColor lines = QColor::fromRgb(giltDeep);
    for (int row = 1; row < gridRows; ++row) painter.fillRect(left, gridTop + row * gridPitch, gridWidth, 1, lines);
    painter.fillRect(left + doublesFrom, grid.top(), 1, grid.height(), lines);
    paintBorder(painter, grid.adjusted(-1, -1, 1, 1), QColor::fromRgb(gilt));
}

constexpr int seatFrame = 16;
constexpr QRect seatTray{41, 99, 175, 57};

constexpr Line seatLines[] = {
    {"Draw your seat", From::middle, 128, 74, 30, script::flowing, &giltInk, 1.2},
    {"Left, Right, Enter", From::middle, 128, 196, 15, script::plain, &ivoryInk, 1.0},
};

constexpr int hiScoreFrame = 18;
constexpr int hiScoreFirstRow = hiScorePlaces::firstTop;
constexpr int hiScorePitch = hiScorePlaces::pitch;
constexpr int rowLinesLeft = 34;
constexpr int rowLinesRight = 466;

constexpr Line hiScoreLines[] = {
    {"Top Five High Scores", From::middle, 250, 62, 34, script::flowing, &lacquerInk, 0.6},
    {"Name", From::left, hiScorePlaces::nameLeft, 122, 15, script::plain, &inkOnPaper, 0},
    {"Rounds", From::left, hiScorePlaces::roundsLeft, 105, 15, script::plain, &inkOnPaper, 0},
    {"Played", From::left, hiScorePlaces::roundsLeft, 122, 15, script::plain, &inkOnPaper, 0},
    {"Level", From::left, hiScorePlaces::levelLeft, 122, 15, script::plain, &inkOnPaper, 0},
    {"Score", From::right, hiScorePlaces::scoreRight, 122, 15, script::plain, &inkOnPaper, 0},
};

void paintPaper(QPainter& painter, const QRect& paper) {
    lay(painter, paper.topLeft(), shaded({QPoint(0, 0), paper.size()}, [&](double x, double y) {
            const double away = std::hypot(x / paper.width() - 0.45, y / paper.height() - 0.4);
            const double fibre = 1 + 0.012 * (grain(cellAt(x, 3), cellAt(y, 1)) - 0.5);
            return lit(ivory, fibre * (1.01 - 0.12 * soft(0.25, 0.8, away)));
        }));
    paintHollowShadow(painter, paper, 10, 0.35);
}

/// The Levels by their numbers, in one line.
QByteArray levelsInWords() {
    QByteArray words("Level:  1 ");
    words += levels[0].caption;
    for (int level = 2; level <= levelCount; ++level)
        words += "   " + QByteArray::number(level) + ' ' + levels[level - 1].caption;
    return words;
}

void paintHiScoreRows(QPainter& painter) {
    for (int row = 0; row <= hiScoreRows; ++row)
        painter.fillRect(rowLinesLeft, hiScoreFirstRow - 7 + row * hiScorePitch, rowLinesRight - rowLinesLeft + 1, 1,
                         QColor::fromRgb(mix(ivory, gilt, 0.6)));
    for (int row = 0; row < hiScoreRows; ++row) {
        const QPainterPath number = script::flowing(QString::number(row + 1), 22);
        const QPointF middle(46, hiScoreFirstRow + 9 + row * hiScorePitch);
        script::paint(painter, number.translated(middle - number.boundingRect().center()), lacquerInk, 0);
    }
}

}  // namespace

void paintBreakDown(QPainter& painter) {
    paintFramedCloth(painter, breakDownSize, breakDownFrame);
    for (const int left : breakDownPlaces::nameLefts) paintGridColumn(painter, left - nameIndent);
    for (const QRect& total : totals) paintTray(painter, total, 0.28);
    for (const Line& line : breakDownLines) paintLine(painter, line);
}

void paintChooseSeat(QPainter& painter) {
    paintFramedCloth(painter, chooseSeatSize, seatFrame);
    paintTray(painter, seatTray, 0.15);
    paintRule(painter, {128, 215}, 70);
    for (const Line& line : seatLines) paintLine(painter, line);
}

void paintHiScore(QPainter& painter) {
    const QRect all(QPoint(0, 0), hiScoreSize);
    const QRect paper = all.adjusted(hiScoreFrame, hiScoreFrame, -hiScoreFrame, -hiScoreFrame);
    paintPaper(painter, paper);
    paintFrame(painter, all, paper);
    paintHiScoreRows(painter);
    paintRule(painter, {250, 82}, 150);
    for (const Line& line : hiScoreLines) paintLine(painter, line);
    const QByteArray levels = levelsInWords();
    paintLine(painter, {levels.constData(), From::middle, 250, 317, 14, script::plain, &inkOnPaper, 0});
}

}  // namespace tableArt
