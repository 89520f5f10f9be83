#include "fineSuits.h"

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "materials.h"
#include "outline.h"
#include "tileRosette.h"
#include "tileSprites.h"

namespace {

/// The rings of a disc of radius 1; D, m and l stand for its colours.
constexpr std::array discRings = {
    Ring{1.00, 'm', 'm', 0, 0},   Ring{0.86, 'l', 'l', 0, 0}, Ring{0.80, 'm', 'm', 0, 0},
    Ring{0.66, 'w', 'm', 8, 0.8}, Ring{0.25, 'D', 'D', 0, 0}, Ring{0.10, 'w', 'w', 0, 0},
};

/// The same where they would run together.
constexpr std::array smallDiscRings = {Ring{1.00, 'm', 'm', 0, 0}, Ring{0.70, 'w', 'w', 0, 0},
                                       Ring{0.48, 'D', 'D', 0, 0}, Ring{0.17, 'w', 'w', 0, 0}};
constexpr double leastDetailed = 10;

/// One member of a cane that stands upright in a box of 5 by 7: waisted, with a knot at its lower end.
constexpr std::string_view member = "M 1 0.6 C 1.5 2 1.5 5 1 6.4 L 4 6.4 C 3.5 5 3.5 2 4 0.6 Z";
constexpr std::string_view knot =
    "M 0.7 -0.75 L 4.3 -0.75 C 5.1 -0.75 5.1 0.75 4.3 0.75 L 0.7 0.75 C -0.1 0.75 -0.1 -0.75 0.7 -0.75 Z";
constexpr std::string_view gloss = "M 1.75 1.1 C 2.1 2.2 2.1 4.6 1.75 5.7 L 2.35 5.7 C 2.6 4.6 2.6 2.2 2.35 1.1 Z";

/// The peacock, from its tail's feathers to the branch that it stands on.
constexpr outline::Shape bird[] = {
    {"B 12 23 20 18 23.4 19.6 1.7 0.5 B 12 23.5 20 21.5 24 24.6 1.8 0.5", "lgG"},
    {"B 11 24.5 17 31 19.6 33.6 1.8 0.5 B 11.5 24.5 20 29 23 32.4 1.9 0.5 B 12 24 20 25 23.8 28.8 1.9 0.5", "gGG"},
    {"B 8.6 27 8.4 29 7.6 30.4 0.7 0.5 B 10.8 27 11 29 10.6 30.6 0.7 0.5", "oYY"},
    {"B 0.4 31.6 8 29.8 17 31.4 1.5 0.4", "tTT"},
    {"B 3 30.8 2 28.4 0.4 28 1.5 0 B 14 31.2 15.4 33.6 17 33.8 1.5 0", "lgG"},
    {"B 6.3 11 6 9 4.6 7.8 0.4 0.3 B 6.7 10.9 6.8 8.6 6.5 7 0.4 0.3 B 7 11 7.6 9 8.5 7.7 0.4 0.3", "gGG"},
    {"E 4.5 7.6 0.65 0.65 E 6.5 6.8 0.65 0.65 E 8.6 7.5 0.65 0.65", "eR"},
    {"M 4.6 12 L 1.5 13.4 L 4.6 14 Z", "yYY"},
    {"M 4.2 12.6 C 4.2 10.2 8 9.8 8.2 12.8 C 8.4 14.6 7.8 15.8 8.8 17.2 C 10 18.8 13.6 19.4 14.8 22.4 "
     "C 15.6 25 13 27.8 9.8 27.9 C 6.2 28 3.9 25.6 4.1 22 C 4.2 19.4 5.6 17.8 5.3 15.8 C 5.1 14.8 4.2 13.8 4.2 12.6 Z",
     "lgG"},
    {"M 5 22 C 5.4 20 6.2 18.6 6.6 17.4 C 6.2 20 5.8 23.4 7.4 26 C 6 25.4 4.8 24 5 22 Z", "wl"},
    {"M 7 20.4 C 9.4 18.6 14 20.4 17.6 25 C 14.4 26.2 9.6 26.6 7.6 24.4 C 6.6 23.2 6.4 21.4 7 20.4 Z", "cBB"},
    {"B 8.6 21.8 11.5 21.6 15.6 24.6 0.35 0.1 B 8.4 23 11 23.2 14.6 25.2 0.35 0.1", "cc"},
    {"E 5.9 12.7 0.95 0.95", "ww"},
    {"E 5.8 12.8 0.5 0.5", "kk"},
};

/// The eye at the end of a feather.
constexpr std::array eyeRings = {Ring{1.9, 'G', 'g', 8, 0.6}, Ring{1.35, 'y', 'y', 0, 0}, Ring{1.0, 'r', 'r', 0, 0},
                                 Ring{0.5, 'B', 'B', 0, 0}};
constexpr QPointF eyes[] = {{22.6, 19.4}, {22.9, 24.2}, {22.7, 28.4}, {21.6, 32}, {18, 32.6}};

/// What a quarter of the Blue dragon's frame shows, inked by pens of so many pixels.
struct FramePart {
    std::string_view line;
    double breadth;
};
constexpr FramePart frameQuarter[] = {
    {"M 12.6 8 L 3 8 Q 2 8 2 9 L 2 20.6", 1.7},
    {"M 5 10.9 Q 5 10.4 5.5 10.4 L 9.4 10.4 L 9.4 15.4 L 4.4 15.4 L 4.4 11.4", 0.9},
    {"M 6.4 12.4 L 7.4 12.4 L 7.4 13.4 L 6.4 13.4 Z", 0.9},
    {"M 12.5 10.4 L 11.4 10.4 L 11.4 13 M 7 17.4 L 4.4 17.4 L 4.4 20.6", 0.9},
};
constexpr QPointF frameCentre(12.5, 20.5);

}  // namespace

void paintFineDisc(QPainter& painter, QPointF centre, double radius, std::string_view colours) {
    const bool detailed = radius * materials::density >= leastDetailed;
    const std::span<const Ring> unit = detailed ? std::span<const Ring>(discRings) : smallDiscRings;
    std::vector<Ring> rings(unit.begin(), unit.end());
    for (Ring& ring : rings) ring.outer *= radius;
    paintFineRosette(painter, centre, rings, "Dml", colours);
}

void paintFineCane(QPainter& painter, QPointF from, QPointF to, double breadth, std::string_view colours) {
    constexpr double boxWidth = 5, boxHeight = 7;
    const QPointF along = to - from;
    painter.save();
    painter.translate(from);
    painter.rotate(std::atan2(-along.x(), along.y()) * 180 / M_PI);
    painter.scale(breadth / boxWidth, std::hypot(along.x(), along.y()) / (2 * boxHeight + 1.5));
    painter.translate(-boxWidth / 2, 0.75);
    for (int part = 0; part < 3; ++part) {
        const QPointF moved(0, part * boxHeight);
        if (part < 2) {
            outline::engrave(painter, outline::path(member).translated(moved), paletteColour(colours[1]));
            outline::paint(painter, outline::path(gloss).translated(moved), std::string(2, colours[2]));
        }
        outline::engrave(painter, outline::path(knot).translated(moved), paletteColour(colours[0]));
    }
    painter.restore();
}

void paintFineBird(QPainter& painter) {
    outline::paint(painter, std::span(bird));
    for (const QPointF& eye : eyes) paintFineRosette(painter, eye, eyeRings);
}

void paintFineFrame(QPainter& painter) {
    QPainterPath frame;
    for (const FramePart& part : frameQuarter)
        for (const int right : {1, -1})
            for (const int low : {1, -1}) {
                const QTransform turn = QTransform::fromTranslate(frameCentre.x(), frameCentre.y()).scale(right, low);
                const QPainterPath line = outline::path(part.line).translated(-frameCentre);
                frame = frame.united(turn.map(outline::drawn(line, part.breadth)));
            }
    outline::engrave(painter, frame, paletteColour('b'));
}
