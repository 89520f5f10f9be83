#include <QPainter>

#include "fineIcons.h"
#include "materials.h"
#include "tableArt.h"

namespace tableArt {

namespace {

constexpr QRgb seenThrough = qRgb(0xC0, 0xC0, 0xC0);

/// What a letter of the icons below stands for.
struct Tint {
    char letter;
    QRgb color;
};

constexpr Tint tints[] = {
    {'#', qRgb(80, 58, 62)},     // the outline, seen on light and on dark
    {'w', materials::ivory},     // paper and tile
    {'c', qRgb(214, 200, 164)},  // paper in shade
    {'r', qRgb(216, 44, 44)},    // lacquer
    {'R', qRgb(158, 22, 30)},    // lacquer in shade
    {'x', qRgb(248, 128, 112)},  // lacquer in light
    {'y', qRgb(255, 214, 84)},   // gilt in light
    {'o', qRgb(224, 154, 40)},   // gilt
    {'g', qRgb(48, 174, 92)},    // bamboo
    {'G', qRgb(22, 122, 66)},    // bamboo in shade
    {'v', qRgb(132, 222, 144)},  // bamboo in light
    {'b', qRgb(56, 122, 220)},   // porcelain
    {'B', qRgb(34, 80, 168)},    // porcelain in shade
    {'l', qRgb(146, 196, 255)},  // porcelain in light
    {'s', qRgb(255, 206, 164)},  // a hand
    {'t', qRgb(226, 158, 116)},  // a hand in shade
    {'m', qRgb(222, 62, 206)},   // script
    {'M', qRgb(156, 30, 146)},   // script in shade
    {'p', qRgb(255, 150, 244)},  // script in light
};

// clang-format off
constexpr char drawings[icons][iconSize][iconSize + 1] = {
    {  // Start Anew
        "................",
        "..#######.......",
        ".#wwwwwww#......",
        ".#wrrrrwc#......",
        ".#wrRRrwc#......",
        ".#wrrrrwc##.....",
        ".#wwwwww#v##....",
        ".#wggwww#vg##...",
        ".#wgGwww#vgg##..",
        ".#wwwwww#vggG#..",
        ".#wrrrww#vgG##..",
        ".#wrRRww#vG##...",
        ".#cccccc#G##....",
        ".#GGGGGGG##.....",
        "..#######.......",
        "................"},
    {  // Level
        "...###....###...",
        "...#y#....#o#...",
        "...#y######o#...",
        "...#yyyyyyoo#...",
        "...#y######o#...",
        "...#y#....#o#...",
        "...#y######o#...",
        "...#yyyyyyoo#...",
        "...#y######o#...",
        "...#y#....#o#...",
        "...#y######o#...",
        "...#yyyyyyoo#...",
        "...#y######o#...",
        "...#y#....#o#...",
        "...#y#....#o#...",
        "...###....###..."},
    {  // Break Down
        "..############..",
        "..#wwwwwwwwwc#..",
        "..#wbbbbwwrrc#..",
        "..#wwwwwwwwwc#..",
        "..#wbbbwwwrrc#..",
        "..#wwwwwwwwwc#..",
        "..#wbbbbbwrrc#..",
        "..#wwwwwwwwwc#..",
        "..#wbbbbwwrrc#..",
        "..#wwwwwwwwwc#..",
        "..#w########c#..",
        "..#wwwwwwwwwc#..",
        "..#wwwwwRRRRc#..",
        "..#wwwwwRRRRc#..",
        "..#cccccccccc#..",
        "..############.."},
    {  // Music
        "................",
        ".....#########..",
        ".....#lbbbbbB#..",
        ".....#lbbbbbB#..",
        ".....#l#####B#..",
        ".....#b#...#B#..",
        ".....#b#...#B#..",
        ".....#b#...#B#..",
        ".....#b#...#B#..",
        "..####b#.###B#..",
        ".#lbbbb##lbbB#..",
        "#lbbbbb#lbbbB#..",
        "#bbbbbB#bbbbB#..",
        "#bbbbB##bbbB#...",
        ".####..#####....",
        "................"},
    {  // High Scores
        "...##########...",
        "...#yyyyyyoo#...",
        ".###ywyyyyoo###.",
        ".#y#ywyyyyoo#o#.",
        ".#y#ywyyyyoo#o#.",
        ".#y##wyyyyo##o#.",
        ".#yy#wyyyyo#oo#.",
        "..#yyyyyyyooo#..",
        "...###yyyo###...",
        ".....#yyyo#.....",
        "......#yo#......",
        "......#yo#......",
        ".....#yyoo#.....",
        "....########....",
        "....#rrrrRR#....",
        "....########...."},
    {  // Rounds Setting
        "................",
        ".....######.##..",
        "...##vvvvgg#G#..",
        "..#vvg####ggG#..",
        ".#vg##...#gGG#..",
        ".#vg#...#gGGG#..",
        "#vg#....######..",
        "#gg#............",
        "............#gg#",
        "..######....#gG#",
        "..#vvgg#...#gG#.",
        "..#vgg#...##gG#.",
        "..#vgg####ggG#..",
        "..#v#ggggGGG##..",
        "..##.######.....",
        "................"},
    {  // Round
        ".......##.......",
        "......#yy#......",
        ".....#yrry#.....",
        "....#yrrrro#....",
        "...#yrwwwwro#...",
        "..#yrrwrrrrro#..",
        ".#yrrrwrrrrRRo#.",
        "#yrrrrwwwrrRRRo#",
        "#yrrrrwrrrRRRRo#",
        ".#yrrrwrrRRRRo#.",
        "..#yrrwwwwRRo#..",
        "...#yrrRRRRo#...",
        "....#yRRRRo#....",
        ".....#oRRo#.....",
        "......#oo#......",
        ".......##......."},
    {  // Peek
        "................",
        "................",
        "..####....####..",
        ".#wwww#..#wwww#.",
        "#wwwwww##wwwwww#",
        "#wwwwww##wwwwww#",
        "#wwbbww##wwbbww#",
        "#wb##bw##wb##bw#",
        "#wb##lw##wb##lw#",
        "#wwbbww##wwbbww#",
        "#cwwwwc##cwwwwc#",
        "#ccccc#..#ccccc#",
        ".####.....####..",
        "................",
        "................",
        "................"},
    {  // Pause
        "................",
        "..#####..#####..",
        "..#lbb#..#lbb#..",
        "..#lbB#..#lbB#..",
        "..#lbB#..#lbB#..",
        "..#lbB#..#lbB#..",
        "..#lbB#..#lbB#..",
        "..#lbB#..#lbB#..",
        "..#lbB#..#lbB#..",
        "..#lbB#..#lbB#..",
        "..#lbB#..#lbB#..",
        "..#lbB#..#lbB#..",
        "..#lbB#..#lbB#..",
        "..#bBB#..#bBB#..",
        "..#####..#####..",
        "................"},
    {  // Stop
        ".......##.##....",
        "....###ss#ss#...",
        "...#ss#ss#ss###.",
        "...#ss#ss#st#st#",
        "...#ss#ss#st#st#",
        "...#ss#ss#st#st#",
        "...#ss#ss#st#st#",
        ".###ssssssssstt#",
        "#ss#ssssssssstt#",
        "#sss#sssssssttt#",
        ".#ssssssssssttt#",
        "..#ssssssssttt#.",
        "...#sssssstttt#.",
        "....##########..",
        "....#rrrrrrRR#..",
        "....##########.."},
    {  // Order
        ".##########.....",
        ".#wwwwwwww#.....",
        ".#wbbbbbbw#..##.",
        ".#wwwwwwww#.#rr#",
        ".#wbbbbbbw##rrR#",
        ".#wwwwwwww#rrR#.",
        ".#wbbbbbw#rrR#..",
        ".#wwwwww#rrR#...",
        ".#wbbbw#rrR#....",
        ".#wwwww#rR##....",
        ".#wbbw#yo##.....",
        ".#wwww###w#.....",
        ".#wwwwwwwc#.....",
        ".#wbbbbbbc#.....",
        ".#cccccccc#.....",
        ".##########....."},
    {  // About
        ".....######.....",
        "...##llllbb##...",
        "..#llbbwwbbbb#..",
        ".#lbbbbwwbbbbB#.",
        ".#lbbbbbbbbbbB#.",
        "#lbbbwwwwbbbbBB#",
        "#lbbbbbwwbbbbBB#",
        "#lbbbbbwwbbbbBB#",
        "#bbbbbbwwbbbbBB#",
        "#bbbbbbwwbbbBBB#",
        "#bbbbbbwwbbbBBB#",
        ".#bbbwwwwwwBBB#.",
        ".#bbbbbbbBBBBB#.",
        "..#bbbBBBBBBB#..",
        "...##BBBBBB##...",
        ".....######....."},
    {  // Help
        "....########....",
        "..##ppmmmmmm##..",
        ".#pmmmmmmmmmM#..",
        ".#pmmm####mmMM#.",
        ".#pmm#...#mmMM#.",
        ".#####...#mmMM#.",
        "........##mmM#..",
        ".......#pmmM#...",
        "......#pmmM#....",
        "......#pmM#.....",
        "......#pmM#.....",
        "......#####.....",
        "......#pmM#.....",
        "......#mmM#.....",
        "......#mMM#.....",
        "......#####....."},
    {  // Exit
        "................",
        "..##........##..",
        ".#xr#......#rr#.",
        "#xrrr#....#rrrR#",
        ".#rrrr#..#rrrR#.",
        "..#rrrr##rrrR#..",
        "...#rrrrrrrR#...",
        "....#rrrrrR#....",
        "....#xrrrrR#....",
        "...#xrrrrrrR#...",
        "..#xrrr##rrRR#..",
        ".#xrrr#..#rrRR#.",
        "#xrrr#....#rrRR#",
        ".#rR#......#RR#.",
        "..##........##..",
        "................"},
};
// clang-format on

/// What is seen through has no half measures, so that a pixel at the edge of an icon is its own colour or none.
QRgb keyed(QRgb pixel) {
    constexpr int halfSeen = 128;
    return qAlpha(pixel) < halfSeen ? seenThrough : qUnpremultiply(pixel) | 0xFF000000;
}

void paintFineIcons(QPainter& painter) {
    QImage image(QSize(icons * iconSize, iconSize) * materials::density, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter inks(&image);
    inks.scale(materials::density, materials::density);
    for (int icon = 0; icon < icons; ++icon) {
        paintFineIcon(inks, icon);
        inks.translate(iconSize, 0);
    }
    inks.end();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) image.setPixel(x, y, keyed(image.pixel(x, y)));
    materials::lay(painter, {0, 0}, image);
}

}  // namespace

void paintToolbarIcons(QPainter& painter) {
    if (materials::density > 1) return paintFineIcons(painter);
    painter.fillRect(0, 0, icons * iconSize, iconSize, QColor::fromRgb(seenThrough));
    materials::everyPixel({0, 0, icons * iconSize, iconSize}, [&](double x, double y) {
        const int column = materials::cellAt(x, 1), row = materials::cellAt(y, 1);
        for (const Tint& tint : tints)
            if (tint.letter == drawings[column / iconSize][row][column % iconSize])
                materials::dot(painter, x, y, tint.color);
    });
}

}  // namespace tableArt
