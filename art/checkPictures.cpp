// Judges the pictures: tiles that look solid, faces that no eye confuses, words that stay words, and calm ground under
// what the game prints. Its argument is the folder of the pictures. Those of a higher density are judged by the same
// measures, and against the plain ones: two more arguments are their density and the folder of the plain ones.

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

/// The pictures that are judged, how many pixels they have each way for one of the game's, and the pictures of
/// density 1.
std::string folder;
int density = 1;
std::string plainFolder;

QImage pictureIn(const std::string& place, const char* name) {
    const QImage image(QString::fromStdString(place + '/' + name + ".png"));
    if (!image.isNull()) return image;
    std::cerr << "check_pictures: no picture " << place << '/' << name << ".png\n";
    std::exit(2);
}

QImage picture(const char* name) { return pictureIn(folder, name); }

/// A rectangle of the game's pixels in those of the pictures.
QRect real(const QRect& rect) { return {rect.topLeft() * density, rect.size() * density}; }

template <typename Measure>
int sumOver(const QRect& rect, Measure measure) {
    int sum = 0;
    for (int y = rect.top(); y <= rect.bottom(); ++y)
        for (int x = rect.left(); x <= rect.right(); ++x) sum += measure(x, y);
    return sum;
}

std::string tileNamed(int face, int view) { return "face " + std::to_string(face) + ", view " + std::to_string(view); }

constexpr QRgb black = 0xFF000000;
constexpr QRgb white = 0xFFFFFFFF;

constexpr const char* names[] = {"101",
                                 "102",
                                 "103",
                                 "104",
                                 "ImageList1",
                                 "picAllTiles",
                                 "picHouse",
                                 "picHouseMask",
                                 "picLightning",
                                 "picLightningMask",
                                 "picPass",
                                 "picPassMask",
                                 "picSmallHouse",
                                 "picSmallHouseMask",
                                 "picTableTop",
                                 "picTileBack",
                                 "picTileBackMask"};

struct Masked {
    const char *picture, *mask;
};
constexpr Masked maskedPictures[] = {{"picAllTiles", "picTileBackMask"},
                                     {"picTileBack", "picTileBackMask"},
                                     {"picHouse", "picHouseMask"},
                                     {"picSmallHouse", "picSmallHouseMask"},
                                     {"picPass", "picPassMask"}};

void checkSizes() {
    for (const char* name : names) {
        const QImage image = picture(name);
        const QImage plain = pictureIn(plainFolder, name);
        expect(image.size() == plain.size() * density,
               std::string(name) + " isn't as large as the plain one in the game's pixels");
        expect(density == 1 || image != plain.scaled(image.size()), std::string(name) + " is the plain one, enlarged");
    }
}

/// How many of the pixels round a pixel, and it itself, are black; beyond the edge there is white.
int blackRound(const QImage& mask, int x, int y) {
    return sumOver({x - 1, y - 1, 3, 3},
                   [&](int nearX, int nearY) { return mask.valid(nearX, nearY) && mask.pixel(nearX, nearY) == black; });
}

// A mask is that of density 1 with a finer outline: a pixel of the game away from the outline is all black or all white
// as it is there, and one at the outline by the greater part.
void checkOutlines() {
    for (const Masked& masked : maskedPictures) {
        const QImage mask = picture(masked.mask);
        const QImage plain = pictureIn(plainFolder, masked.mask);
        const auto isWrong = [&](int x, int y) {
            const int all = density * density;
            const int blacks =
                sumOver(real({x, y, 1, 1}), [&](int fineX, int fineY) { return mask.pixel(fineX, fineY) == black; });
            const int round = blackRound(plain, x, y);
            const int right = plain.pixel(x, y) == black ? blacks : all - blacks;
            return round == 0 || round == 9 ? right < all : 2 * right < all;
        };
        expect(sumOver(plain.rect(), isWrong) == 0, std::string(masked.mask) + " isn't the plain mask, finer");
        expect(sumOver(mask.rect(),
                       [&](int x, int y) { return mask.pixel(x, y) != black && mask.pixel(x, y) != white; }) == 0,
               std::string(masked.mask) + " has half tones");
    }
}

// The picture under the white of a mask is black, so that nothing of it shows.
void checkGround() {
    for (const Masked& masked : maskedPictures) {
        const QImage image = picture(masked.picture);
        const QImage mask = picture(masked.mask);
        const auto shines = [&](int x, int y) {
            return mask.pixel(x % mask.width(), y % mask.height()) == white && image.pixel(x, y) != black;
        };
        expect(sumOver(image.rect(), shines) == 0, std::string(masked.picture) + " shows beyond its mask");
    }
    QImage complement = picture("picLightningMask");
    complement.invertPixels();
    expect(complement == picture("picLightning"), "the lightning's mask isn't its complement");
}

void checkTable() {
    constexpr QRect outer{21, 44, 310, 507}, board{40, 63, 270, 468}, around{10, 34, 332, 527};
    const QImage table = picture("101");
    const auto isAmiss = [&](int x, int y) {
        const QRgb colour = table.pixel(x, y);
        const bool red = qRed(colour) > std::max(qGreen(colour), qBlue(colour));
        return red != (real(outer).contains(x, y) && !real(board).contains(x, y));
    };
    expect(sumOver(real(around), isAmiss) == 0, "the frame doesn't end exactly at the board");
    expect(table.copy(real({592, 304, 64, 64})) == picture("picTableTop"), "the small table shows a seam");
}

// A mask is white where nothing is shown; what is shown is hardly anywhere as black as what isn't.
void checkInk() {
    for (const Masked& pair : maskedPictures) {
        const QImage image = picture(pair.picture);
        const QImage mask = picture(pair.mask);
        const auto shows = [&](int x, int y) { return mask.pixel(x % mask.width(), y % mask.height()) == black; };
        const auto isBlack = [&](int x, int y) { return shows(x, y) && image.pixel(x, y) == black; };
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
            expect(sumOver(real({left + side.band, top, bandWidth, height}), green) <
                       bandWidth * sumOver(real({left + side.edgeOfFront, top, 1, height}), green),
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
        const QRect rows = real({left, label.top, 1, label.bottom - label.top + 1});
        for (int x = rows.left(); x < table.width(); ++x) {
            const bool ink = sumOver({x, rows.top(), 1, rows.height()}, magenta) > 0;
            if (ink) gaps += blank >= wordGap * density ? 1 : 0;
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
            const QRect rect = real(place.rect.translated(0, row * place.pitch));
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
    // Of a higher density the mean of all pixels that stand for one of the game's.
    const QImage tiles =
        picture("picAllTiles")
            .scaled(faceCount * tileWidth, viewCount * tileHeight, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
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
    if (count != 2 && count != 4) {
        std::cerr << "usage: check_pictures FOLDER [DENSITY FOLDER_OF_DENSITY_1]\n";
        return 2;
    }
    folder = plainFolder = words[1];
    if (count == 4) density = std::atoi(words[2]), plainFolder = words[3];
    for (const auto check :
         {checkSizes, checkOutlines, checkGround, checkTable, checkInk, checkSides, checkWords, checkCalm, checkFaces})
        check();
    return pleased ? 0 : 1;
}
