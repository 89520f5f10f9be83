#include "fineBonus.h"

#include <array>
#include <cmath>
#include <span>

#include "materials.h"
#include "outline.h"
#include "tileBody.h"
#include "tileSprites.h"

namespace {

using outline::Shape;

/// A place with what stands there: so large, and turned by so many degrees.
struct Spot {
    double x, y, size, turn;
};

/// Things of size 1 round the origin, to be painted at spots.
constexpr Shape blossom[] = {
    {"M 0 0 C -0.75 -0.2 -0.75 -0.95 -0.3 -1 Q -0.1 -1 0 -0.86 Q 0.1 -1 0.3 -1 C 0.75 -0.95 0.75 -0.2 0 0 Z", "wpP"},
    {"B 0 0 0.02 -0.3 0 -0.56 0.05 0.05", "PP"},
    {"E 0 -0.58 0.07 0.07", "yY"},
};
constexpr Shape blossomHeart[] = {{"E 0 0 0.2 0.2", "yY"}};
constexpr Shape smallBlossom[] = {{"M 0 0 C -0.9 -0.2 -0.7 -1 0 -0.9 C 0.7 -1 0.9 -0.2 0 0 Z", "wp"}};
constexpr Shape bud[] = {{"M 0 0.9 C -1 0.6 -0.9 -0.6 0 -1 C 0.9 -0.6 1 0.6 0 0.9 Z", "wPP"},
                         {"M -0.55 0.5 Q 0 0 0.55 0.5 Q 0.3 1.2 0 1.2 Q -0.3 1.2 -0.55 0.5 Z", "gG"}};
constexpr Shape petal[] = {{"M 0 1 C -0.9 0.4 -0.7 -0.8 0 -1 C 0.8 -0.6 0.6 0.5 0 1 Z", "wP"}};
constexpr Shape flakeArm[] = {
    {"B 0 0 0 -0.5 0 -1 0.16 0.1 B 0 -0.5 0.15 -0.65 0.32 -0.74 0.12 0.06 "
     "B 0 -0.5 -0.15 -0.65 -0.32 -0.74 0.12 0.06",
     "wn"}};
constexpr Shape orchid[] = {
    {"B 0 0 -0.25 -0.5 0 -1.05 0.34 0 B 0 0 -0.6 -0.2 -1 0.1 0.3 0 B 0 0 0.6 -0.2 1 0.1 0.3 0", "vv"},
    {"B 0 0 -0.5 -0.4 -0.62 -0.74 0.42 0 B 0 0 0.5 -0.4 0.62 -0.74 0.42 0", "pvv"},
    {"M 0 -0.05 C -0.5 0.2 -0.4 0.8 0 0.95 C 0.4 0.8 0.5 0.2 0 -0.05 Z", "wPv"},
    {"E 0 0.1 0.14 0.2", "yY"},
};
constexpr Shape goose[] = {{"B -1 -0.5 -0.5 -0.7 0 0.2 0.26 0.2 B 1 -0.5 0.5 -0.7 0 0.2 0.26 0.2", "kk"}};
constexpr Shape wave[] = {{"B -1.6 0.3 -0.8 -0.6 0 0.1 0.3 0.2 B 0 0.1 0.8 -0.6 1.6 0.3 0.3 0.1", "nc"}};
constexpr Shape tuft[] = {
    {"B 0 1 -0.5 0 -0.9 -0.5 0.25 0 B 0 1 0 0 0.1 -0.9 0.25 0 B 0 1 0.5 0.2 0.9 -0.4 0.25 0", "lg"}};

void paintAt(QPainter& painter, std::span<const Shape> shapes, const Spot& spot) {
    painter.save();
    painter.translate(spot.x, spot.y);
    painter.rotate(spot.turn);
    painter.scale(spot.size, spot.size);
    outline::paint(painter, shapes);
    painter.restore();
}

/// Paints shapes so many times round a spot.
void paintRound(QPainter& painter, std::span<const Shape> shapes, Spot spot, int times) {
    for (int turn = 0; turn < times; ++turn) {
        paintAt(painter, shapes, spot);
        spot.turn += 360.0 / times;
    }
}

void paintBlossom(QPainter& painter, const Spot& spot) {
    paintRound(painter, blossom, spot, 5);
    paintAt(painter, blossomHeart, spot);
}

constexpr Shape springLand[] = {
    {"M 0 26 C 4 21 7 20 10 22.6 C 14 17.6 21 18 25 23.4 L 25 30 L 0 30 Z", "nc"},
    {"M 0 28.6 C 6 26.2 14 29.4 25 26.8 L 25 35 L 0 35 Z", "lg"},
    {"M 0 31.6 C 8 29.6 16 32.6 25 30.4 L 25 35 L 0 35 Z", "gG"},
    {"M 9.4 30.8 C 11.6 28.6 12 24 10.8 18.6 L 13 18.2 C 13.2 22.6 13.4 28.2 15.8 30.6 Z", "tTT"},
    {"B 17.6 15.6 15 18.6 12.2 23.6 0.9 1.3 B 6.4 16.6 8.4 20.4 12 24.6 0.8 1.2", "tT"},
};
constexpr Spot canopy[] = {{6.2, 16.6, 3.4, 0}, {19, 15.6, 3.5, 0},  {9.2, 12.4, 3.9, 0}, {15.4, 11.4, 4.2, 0},
                           {12.4, 16, 3.9, 0},  {8.6, 18.8, 2.5, 0}, {16.8, 18.2, 2.9, 0}};
constexpr Spot fallingPetals[] = {{3.4, 25, 0.6, 30},   {20.6, 23.6, 0.6, -40}, {7.2, 28.6, 0.6, 70},
                                  {18, 30.6, 0.6, 100}, {21.6, 28, 0.5, 10},    {4.4, 32.4, 0.6, -80}};
constexpr Spot springTufts[] = {{5.6, 33, 1.3, 0}, {12.4, 33.4, 1.2, 0}, {19.6, 32.8, 1.3, 0}, {22.6, 29, 0.9, 0}};

/// Clouds of blossom, shaded below, with single flowers among them.
void paintCanopy(QPainter& painter) {
    for (const auto& [down, inks] : {std::pair{0.5, "PP"}, std::pair{0.0, "pP"}})
        for (const Spot& cloud : canopy)
            outline::paint(painter, outline::disc({cloud.x, cloud.y + down}, cloud.size - down / 4), inks);
    constexpr int flowers = 112;
    for (int i = 0; i < flowers; ++i) {
        const Spot& cloud = canopy[i % std::size(canopy)];
        const double turn = 2 * M_PI * materials::grain(i, 11), away = cloud.size * std::sqrt(materials::grain(i, 12));
        paintRound(painter, smallBlossom,
                   {cloud.x + away * std::cos(turn), cloud.y + away * std::sin(turn), 0.75, 360 * turn}, 5);
    }
}

void paintSpring(QPainter& painter) {
    outline::paint(painter, springLand);
    paintCanopy(painter);
    for (const Spot& spot : fallingPetals) paintAt(painter, petal, spot);
    for (const Spot& spot : springTufts) paintAt(painter, tuft, spot);
}

constexpr Shape summerSea[] = {
    {"E 6 12 3 0.9 E 8.6 11.4 2.4 1 E 4 12.6 2 0.7", "wn"},
    {"M 17 27.4 C 18.6 24 22 23.4 26 25.4 L 26 27.4 Z", "lG"},
    {"M 0 27 L 25 27 L 25 35 L 0 35 Z", "cB"},
};
constexpr Shape junk[] = {
    {"M 9.3 13.6 L 10 13.6 L 10 28.4 L 9.3 28.4 Z", "tT"},
    {"M 10 13.4 Q 11.6 13.2 13 14.2 Q 11.6 14.6 10 15 Z", "yo"},
    {"M 9.1 15.4 C 6 17 3.6 21.4 2.8 26.8 Q 6 26 9.1 26.8 Z", "erR"},
    {"M 10.4 16 C 13.6 17.4 15.8 21.4 16.4 26.2 Q 13.4 25.8 10.4 26.8 Z", "erR"},
    {"B 9 18.2 7.6 17.8 6 18.6 0.3 0.2 B 9 20.9 6.8 20.4 4.6 21.2 0.3 0.2 B 9 23.6 6.2 23.2 3.6 24 0.3 0.2", "RR"},
    {"B 10.5 18.8 12 18.2 13.6 18.8 0.3 0.2 B 10.5 21.4 12.8 20.8 15 21.4 0.3 0.2 B 10.5 24 13 23.4 15.8 24 0.3 0.2",
     "RR"},
    {"M 2.4 27.4 C 3.4 30.4 4.6 31.4 6 31.4 L 13.8 31.4 C 15.8 31.2 17 29.4 17.8 26.2 Q 16 27.8 14.4 28 L 4.8 28 Q 3.4 "
     "28 2.4 27.4 Z",
     "tTT"},
    {"B 4.2 29.4 9 29.8 16 29 0.4 0.2", "yo"},
};
constexpr Spot summerWaves[] = {{4, 31.9, 1.1, 0},  {8.6, 32.1, 1.1, 0}, {13.2, 31.9, 1.1, 0}, {20.6, 29.6, 1, 0},
                                {21.6, 33, 1.2, 0}, {3.2, 34, 1.2, 0},   {12, 34.2, 1.2, 0}};

constexpr Shape ray[] = {{"M -0.42 -4.4 Q 0 -8 0 -8 Q 0 -8 0.42 -4.4 Z", "yo"}};
constexpr Shape shortRay[] = {{"M -0.36 -4.4 Q 0 -6.4 0 -6.4 Q 0 -6.4 0.36 -4.4 Z", "yo"}};
constexpr Spot sun = {17.4, 9.4, 1, 0};

/// Light that fades to nothing round a place.
void paintGlow(QPainter& painter, QPointF centre, double radius, QRgb colour) {
    QRadialGradient glow(centre, radius);
    QColor edge = QColor::fromRgb(colour);
    glow.setColorAt(0, edge);
    edge.setAlpha(0);
    glow.setColorAt(1, edge);
    painter.fillPath(outline::disc(centre, radius), glow);
}

void paintSun(QPainter& painter) {
    paintGlow(painter, {sun.x, sun.y}, 10, paletteColour('w'));
    paintRound(painter, ray, sun, 12);
    paintRound(painter, shortRay, {sun.x, sun.y, 1, 15}, 12);
    outline::paint(painter, outline::disc({sun.x, sun.y}, 4.2), "yoo");
    outline::paint(painter, outline::disc({sun.x - 0.5, sun.y - 0.5}, 2.8), "wy");
}

void paintSummer(QPainter& painter) {
    paintSun(painter);
    outline::paint(painter, summerSea);
    outline::paint(painter, junk);
    for (const Spot& spot : summerWaves) paintAt(painter, wave, spot);
}

constexpr Shape autumnLand[] = {
    {"M 0 29 C 5 24.6 9 26 13 24.4 C 17 22.6 21 22.8 25 24.4 L 25 35 L 0 35 Z", "vk"},
    {"M 0 30 C 6 28.6 9 30.6 14 29 C 18 27.6 22 28.6 25 28 L 25 35 L 0 35 Z", "tv"},
    {"M 0 33 C 8 31 17 33.4 25 31.4 L 25 35 L 0 35 Z", "tT"},
};
constexpr Spot geese[] = {{11, 6.4, 1.7, 0}, {15.4, 8.4, 1.3, 6}, {8, 9.6, 1.3, -6}, {19.2, 6, 1.1, 8}};
/// A plume of pampas grass: where its stem roots and where its tip hangs.
struct Plume {
    QPointF root, tip;
};
constexpr Plume plumes[] = {{{4, 35}, {1.6, 20}},   {{6, 35}, {8, 17.4}},    {{8, 35}, {14.4, 22.6}},
                            {{5, 35}, {4.4, 24.8}}, {{9, 35}, {18.2, 26.4}}, {{7, 35}, {11.4, 27}}};

void paintPlume(QPainter& painter, const Plume& plume) {
    const QPointF bend(plume.root.x() * 0.8 + plume.tip.x() * 0.2, plume.tip.y() - 1);
    const auto at = [&](double t) {
        return plume.root * (1 - t) * (1 - t) + bend * 2 * t * (1 - t) + plume.tip * t * t;
    };
    const double away = plume.tip.x() < plume.root.x() ? -1 : 1;
    paintFineBlade(painter, plume.root, bend, plume.tip, 0.5, 'Y', 'Y');
    constexpr int hairs = 16;
    for (int hair = 0; hair < hairs; ++hair) {
        const double t = 1 - 0.42 * hair / hairs;
        const double side = (hair % 2 == 0 ? 1 : -0.5) * away;
        const QPointF root = at(t), tip = root + QPointF(side * (1.1 + 0.05 * hair), 0.7 + 0.09 * hair);
        paintFineBlade(painter, root, {tip.x(), root.y() - 0.6}, tip, 0.75, hair % 3 == 0 ? 'w' : 'i', 'i');
    }
}

void paintMoon(QPainter& painter) {
    constexpr QPointF centre(16.6, 15.6);
    paintGlow(painter, centre, 9.5, paletteColour('i'));
    outline::paint(painter, outline::disc(centre, 5.4), "wiy");
    outline::paint(painter, outline::path("E 15 14 1.2 0.9 E 18.4 16.6 1.5 1.1 E 15.6 18.4 0.8 0.6"), "iy");
}

void paintAutumn(QPainter& painter) {
    paintMoon(painter);
    outline::paint(painter, autumnLand);
    for (const Spot& spot : geese) paintAt(painter, goose, spot);
    for (const Plume& plume : plumes) paintPlume(painter, plume);
}

constexpr Shape winterLand[] = {
    {"M 0 27 C 4 22.6 8 24 12 25.4 C 16 21 22 20.6 25 24 L 25 31 L 0 31 Z", "sc"},
    {"M 0 30.4 C 6 28.4 12 30.6 25 27.6 L 25 35 L 0 35 Z", "ns"},
    {"M 17.4 26.6 L 23.4 26.6 L 23.4 30 L 17.4 30 Z", "tT"},
    {"M 19 27.4 L 20.6 27.4 L 20.6 29 L 19 29 Z", "yo"},
    {"M 16.4 27 Q 18.6 25.4 20.4 23.6 Q 22.4 25.6 24.6 27 Z", "ws"},
    {"M 0 33 C 7 31 16 33.4 25 31 L 25 35 L 0 35 Z", "wn"},
    {"M 9.6 27 L 11.6 27 L 11.8 31.6 Q 10.6 32.2 9.4 31.6 Z", "tT"},
};
/// A bough of the pine and the snow on it, round the origin of its tip.
constexpr Shape bough[] = {
    {"M 0 -3.4 C 0.8 -1 3.4 1.4 5.4 2.4 Q 4 2.6 3.6 3.4 Q 2.4 2.8 1.6 3.6 Q 0 3 -1.6 3.6 Q -2.4 2.8 -3.6 3.4 Q -4 2.6 "
     "-5.4 2.4 "
     "C -3.4 1.4 -0.8 -1 0 -3.4 Z",
     "gGG"},
    {"M 0 -3.4 C 0.5 -1.6 1.2 -0.8 2 0.2 Q 1 -0.2 0.9 1 Q 0 0.2 -0.8 1.4 Q -1.6 0.8 -2.4 2 Q -3.4 1.6 -4.2 2.5 Q -5 "
     "2.6 -5.4 2.4 "
     "C -3.4 1.4 -0.8 -1 0 -3.4 Z",
     "wn"},
};
constexpr Spot boughs[] = {{10.6, 24.4, 1.25, 0}, {10.6, 19.4, 1.02, 0}, {10.6, 15, 0.78, 0}, {10.6, 11.4, 0.52, 0}};
constexpr Spot flakes[] = {{15.4, 5, 1.7, 10}, {21, 10.6, 1.5, 25}, {18.4, 17, 1.2, 5},  {4, 12, 1.4, 15},
                           {9.6, 4.4, 1.1, 0}, {21.6, 4, 1, 20},    {3.6, 20, 1.1, 40},  {15.8, 11.8, 0.9, 30},
                           {22, 20, 0.9, 12},  {3, 26.6, 0.9, 50},  {17, 22.4, 0.8, 33}, {7, 8.6, 0.8, 8}};

void paintWinter(QPainter& painter) {
    outline::paint(painter, winterLand);
    for (const Spot& spot : boughs) paintAt(painter, bough, spot);
    for (const Spot& spot : flakes) paintRound(painter, flakeArm, spot, 6);
}

constexpr Shape plumBranches[] = {
    {"B 15.6 20 19.4 28.6 5.6 36 2 3.6", "tTT"},
    {"B 20.6 4.4 19 13 15.4 22 1.2 2.3 B 0.8 11 6 19 15.8 21.4 0.9 1.9", "tTT"},
    {"B 23.8 17.4 21 22 16.4 25 0.7 1.2 B 3.4 27.4 7.4 29.6 10.6 29.6 0.7 1 B 9.4 12 8.6 15 9 18 0.6 0.8", "tTT"},
};
constexpr Spot plumBlossoms[] = {{16.8, 5.6, 4.3, 10}, {6.3, 15.6, 4.2, -12}, {20.2, 19.6, 4.1, 24},
                                 {10.6, 28.2, 4.4, 4}, {22.2, 10.8, 2.5, 40}, {2.8, 25.6, 2.6, -30}};
constexpr Spot plumBuds[] = {{10, 10.8, 1.2, 20}, {1.6, 9.8, 1.1, -30}, {23.2, 4.2, 1.1, 30}, {18.6, 27.4, 1.1, 120}};

void paintPlum(QPainter& painter) {
    outline::paint(painter, plumBranches);
    for (const Spot& spot : plumBuds) paintAt(painter, bud, spot);
    for (const Spot& spot : plumBlossoms) paintBlossom(painter, spot);
}

constexpr Spot orchids[] = {{11.6, 6.6, 4.4, -8}, {19, 16, 4, 12}};
constexpr Spot orchidBuds[] = {{3, 12.6, 1.4, -30}, {21, 8, 1.2, 25}};

void paintOrchids(QPainter& painter) {
    for (const Spot& spot : orchidBuds) paintAt(painter, bud, spot);
    for (const Spot& spot : orchids) paintAt(painter, orchid, spot);
}

constexpr Shape longPetal[] = {
    {"M 0 0 C -0.12 -0.4 -0.2 -0.9 -0.06 -0.98 Q 0 -0.93 0.06 -0.98 C 0.2 -0.9 0.12 -0.4 0 0 Z", "yoY"},
    {"B 0 -0.3 0 -0.6 0 -0.86 0.03 0", "Yo"},
};
constexpr Spot chrysanthemum = {13.2, 15, 10.2, 0};
constexpr Shape chrysanthemumHeart[] = {{"E 13.2 15 1.5 1.5", "oYY"}, {"E 12.9 14.7 0.7 0.7", "yo"}};

/// Petals in wreaths that lie one over the other, each smaller than the last.
void paintChrysanthemum(QPainter& painter) {
    constexpr int wreaths = 5;
    Spot spot = chrysanthemum;
    for (int wreath = 0; wreath < wreaths; ++wreath) {
        paintRound(painter, longPetal, spot, 18 - 2 * wreath);
        spot.size *= 0.78;
        spot.turn += 11;
    }
    outline::paint(painter, chrysanthemumHeart);
}

constexpr Shape grove[] = {
    {"M -1.4 0.4 Q -1 3 -1.4 5.7 L 1.4 5.7 Q 1 3 1.4 0.4 Z", "lG"},
    {"M -0.9 0.8 Q -0.6 3 -0.9 5.3 L -0.4 5.3 Q -0.2 3 -0.4 0.8 Z", "wl"},
    {"M -1.8 -0.2 Q 0 -0.8 1.8 -0.2 Q 1.9 0.6 1.4 0.5 Q 0 0 -1.4 0.5 Q -1.9 0.6 -1.8 -0.2 Z", "gGG"},
};

void paintBambooGrove(QPainter& painter) {
    constexpr double member = 6;
    for (const QPointF& top : {QPointF(9.5, 13.5), QPointF(16.5, 7.5)})
        for (double y = top.y(); y < faceHeight; y += member) paintAt(painter, grove, {top.x(), y, 1, 0});
}

/// What a season covers: all of its face but the plaque of its index.
QPainterPath scene() {
    QPainterPath path;
    path.addRoundedRect(QRectF(0.8, 0.8, faceWidth - 1.6, faceHeight - 1.6), 1.4, 1.4);
    return path.subtracted(outline::path("M -1 -1 L 6.4 -1 L 6.4 6.6 Q 6.4 8 5 8 L -1 8 Z"));
}

void paintSky(QPainter& painter, QRgb high, QRgb low) {
    constexpr int horizon = 28;
    QLinearGradient sky(0, 0, 0, horizon);
    sky.setColorAt(0, QColor::fromRgb(high));
    sky.setColorAt(1, QColor::fromRgb(low));
    painter.fillRect(0, 0, faceWidth, faceHeight, sky);
}

constexpr void (*seasons[])(QPainter&) = {paintSpring, paintSummer, paintAutumn, paintWinter};
constexpr void (*flowers[])(QPainter&) = {paintPlum, paintOrchids, paintChrysanthemum, paintBambooGrove};

}  // namespace

void paintFineSeason(QPainter& painter, int number, QRgb high, QRgb low) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipPath(scene(), Qt::IntersectClip);
    paintSky(painter, high, low);
    seasons[number - 1](painter);
    painter.restore();
    outline::engrave(painter, outline::drawn(scene(), 0.6), paletteColour('Y'));
}

void paintFineFlower(QPainter& painter, int number) { flowers[number - 1](painter); }

void paintFineBlade(QPainter& painter, QPointF root, QPointF bend, QPointF tip, double breadth, char lit, char shaded) {
    const char inks[] = {lit, shaded, 'G'};
    const bool leaf = breadth >= 2;
    outline::paint(painter, outline::stroke(root, bend, tip, breadth, 0), {inks, size_t(leaf ? 3 : 2)});
    if (leaf) outline::paint(painter, outline::stroke(root, bend, tip, 0.3, 0), "ll");
}
