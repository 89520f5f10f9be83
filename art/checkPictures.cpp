// Judges the pictures: tiles that look solid, faces that no eye confuses, words that stay words, and calm ground under
// what the game prints. Its one argument is the folder of the pictures.

#include <QImage>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "expect.h"

namespace {

constexpr int tileWidth = 30;
constexpr int tileHeight = 39;
constexpr int viewCount = 3;
constexpr int faceCount = 42;

std::string folder;

QImage picture(const char* name) {
    const QImage image(QString::fromStdString(folder + '/' + name + ".png"));
    if (!image.isNull()) return image;
    std::cerr << "check_pictures: no picture " << folder << '/' << name << ".png\n";
    std::exit(2);
}

template <typename Measure>
int sumOver(const QRect& rect, Measure measure) {
    int sum = 0;
    for (int y = rect.top(); y <= rect.bottom(); ++y)
        for (int x = rect.left(); x <= rect.right(); ++x) sum += measure(x, y);
    return sum;
}

std::string tileNamed(int face, int view) { return "face " + std::to_string(face) + ", view " + std::to_string(view); }

// A mask is white where nothing is shown; what is shown is hardly anywhere as black as what isn't.
void checkInk() {
    struct Pair {
        const char *picture, *mask;
    };
    constexpr Pair pairs[] = {{"picAllTiles", "picTileBackMask"},
                              {"picTileBack", "picTileBackMask"},
                              {"picHouse", "picHouseMask"},
                              {"picSmallHouse", "picSmallHouseMask"},
                              {"picPass", "picPassMask"}};
    for (const Pair& pair : pairs) {
        const QImage image = picture(pair.picture);
        const QImage mask = picture(pair.mask);
        const auto shows = [&](int x, int y) { return mask.pixel(x % mask.width(), y % mask.height()) == 0xFF000000; };
        const auto isBlack = [&](int x, int y) { return shows(x, y) && image.pixel(x, y) == 0xFF000000; };
        expect(10 * sumOver(image.rect(), isBlack) < sumOver(image.rect(), shows),
               std::string(pair.picture) + " is black");
    }
}

void checkSides() {
    struct Side {
        int view, band, edgeOfFront;
    };
    constexpr int bandWidth = 3;
    constexpr Side sides[] = {{1, tileWidth - bandWidth, tileWidth - bandWidth - 2}, {2, 0, bandWidth}};
    const QImage tiles = picture("picAllTiles");
    const auto green = [&](int x, int y) { return qGreen(tiles.pixel(x, y)); };
    for (const Side& side : sides)
        for (int face = 0; face < faceCount; ++face) {
            const int left = face * tileWidth;
            const int top = side.view * tileHeight + bandWidth;
            const int height = tileHeight - 2 * bandWidth;
            expect(sumOver({left + side.band, top, bandWidth, height}, green) <
                       bandWidth * sumOver({left + side.edgeOfFront, top, 1, height}, green),
                   tileNamed(face, side.view) + ": its side is no darker than its front");
        }
}

// A gap between words is wider than any in them.
void checkWords() {
    struct Label {
        const char* words;
        int top, bottom;
        int gaps;
    };
    constexpr Label labels[] = {{"Next Tile", 45, 68, 1},
                                {"Tiles In Possession", 99, 121, 2},
                                {"Score", 242, 264, 0},
                                {"Round", 323, 344, 0},
                                {"Select Tiles", 403, 426, 1}};
    constexpr int left = 353;
    constexpr int wordGap = 5;
    const QImage table = picture("101");
    const auto magenta = [&](int x, int y) {
        const QRgb colour = table.pixel(x, y);
        return qRed(colour) > 120 && std::min(qRed(colour), qBlue(colour)) > 2 * qGreen(colour);
    };
    for (const Label& label : labels) {
        int gaps = 0;
        int blank = 0;
        for (int x = left; x < table.width(); ++x) {
            const bool ink = sumOver({x, label.top, 1, label.bottom - label.top + 1}, magenta) > 0;
            if (ink) gaps += blank >= wordGap ? 1 : 0;
            blank = ink ? 0 : blank + 1;
        }
        expect(gaps == label.gaps, std::string(label.words) + ": words run together or fall apart");
    }
}

void checkCalm() {
    struct Place {
        const char* name;
        QRect rect;
        int rows, pitch;
    };
    constexpr Place places[] = {
        {"101", {452, 236, 136, 28}, 1, 0}, {"102", {37, 54, 195, 21}, 6, 38},  {"102", {248, 54, 74, 21}, 6, 38},
        {"102", {353, 54, 195, 21}, 6, 38}, {"102", {565, 54, 74, 21}, 6, 38},  {"102", {207, 283, 110, 21}, 1, 0},
        {"102", {519, 283, 110, 21}, 1, 0}, {"104", {65, 137, 160, 21}, 5, 32}, {"104", {229, 137, 60, 21}, 5, 32},
        {"104", {321, 137, 30, 21}, 5, 32}, {"104", {360, 137, 86, 21}, 5, 32},
    };
    constexpr int loudestStep = 12;
    for (const Place& place : places) {
        const QImage image = picture(place.name);
        const auto green = [&](int x, int y) { return qGreen(image.pixel(x, y)); };
        const auto isLoud = [&](int x, int y) {
            return std::abs(green(x, y) - green(x + 1, y)) > loudestStep ||
                   std::abs(green(x, y) - green(x, y + 1)) > loudestStep;
        };
        for (int row = 0; row < place.rows; ++row) {
            const QRect rect = place.rect.translated(0, row * place.pitch);
            expect(sumOver(rect, isLoud) == 0, std::string(place.name) + " is loud under the text at " +
                                                   std::to_string(rect.x()) + ", " + std::to_string(rect.y()));
        }
    }
}

using Colour = std::array<double, 3>;
using Face = std::array<Colour, tileWidth * tileHeight>;

/// How an eye mixes linear red, green and blue.
struct Eye {
    const char* name;
    std::array<Colour, 3> rows;
};
constexpr Eye eyes[] = {
    {"full colour", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}},
    {"no red", {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}}},
    {"no green", {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}}},
    {"no blue", {{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}}},
};

double linear(int channel) { return std::pow(channel / 255.0, 2.2); }
double shown(double light) { return 255 * std::pow(std::clamp(light, 0.0, 1.0), 1 / 2.2); }

Colour seenBy(const Eye& eye, QRgb colour) {
    const Colour light = {linear(qRed(colour)), linear(qGreen(colour)), linear(qBlue(colour))};
    Colour seen{};
    for (size_t i = 0; i < seen.size(); ++i)
        seen[i] = shown(eye.rows[i][0] * light[0] + eye.rows[i][1] * light[1] + eye.rows[i][2] * light[2]);
    return seen;
}

/// A face as it looks from some way off: each pixel the mean of itself and its neighbours.
Face faceSeenBy(const Eye& eye, const QImage& tile) {
    Face sharp{};
    for (int y = 0; y < tileHeight; ++y)
        for (int x = 0; x < tileWidth; ++x) sharp[y * tileWidth + x] = seenBy(eye, tile.pixel(x, y));
    Face soft{};
    for (int y = 1; y + 1 < tileHeight; ++y)
        for (int x = 1; x + 1 < tileWidth; ++x)
            for (const int line : {y - 1, y, y + 1})
                for (const int near : {x - 1, x, x + 1})
                    for (size_t i = 0; i < 3; ++i) soft[y * tileWidth + x][i] += sharp[line * tileWidth + near][i] / 9;
    return soft;
}

/// The root mean square difference of two faces, in steps of 255.
double distanceOf(const Face& one, const Face& other) {
    double sum = 0;
    for (size_t pixel = 0; pixel < one.size(); ++pixel)
        for (size_t i = 0; i < 3; ++i) sum += std::pow(one[pixel][i] - other[pixel][i], 2);
    return std::sqrt(sum / (3.0 * one.size()));
}

void checkFaces() {
    constexpr double leastDistance = 20;
    const QImage tiles = picture("picAllTiles");
    for (const Eye& eye : eyes)
        for (int view = 0; view < viewCount; ++view) {
            std::vector<Face> faces;
            for (int face = 0; face < faceCount; ++face)
                faces.push_back(
                    faceSeenBy(eye, tiles.copy(face * tileWidth, view * tileHeight, tileWidth, tileHeight)));
            for (int one = 0; one < faceCount; ++one)
                for (int other = one + 1; other < faceCount; ++other)
                    expect(distanceOf(faces[one], faces[other]) >= leastDistance,
                           tileNamed(one, view) + " looks like face " + std::to_string(other) + " to an eye with " +
                               eye.name);
        }
}

}  // namespace

int main(int count, char** words) {
    if (count != 2) {
        std::cerr << "usage: check_pictures FOLDER\n";
        return 2;
    }
    folder = words[1];
    for (const auto check : {checkInk, checkSides, checkWords, checkCalm, checkFaces}) check();
    return pleased ? 0 : 1;
}
