#include "platform/text.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <tuple>

#include "platform/sim/state.h"

namespace platform {
namespace {

constexpr int fixedPoint = 64;    // a pixel in the rasterizer's units
constexpr int dotsPerInch = 96;   // of every surface
constexpr int boldenedPart = 24;  // strokes of a light face grow by this part of its size
constexpr double pointsPerInch = 72;

struct Glyph {
    int left = 0;   ///< Of the bitmap, from the pen.
    int above = 0;  ///< Of the bitmap's top, over the base line.
    int width = 0;
    int height = 0;
    int advance = 0;
    std::vector<uint8_t> cover;  ///< 0 to 255 a pixel.
};

/// A font's file, opened once.
struct Face {
    FT_Face face = nullptr;
    bool needsBold = false;
};

struct FontFile {
    std::string path;
    int index = 0;
    bool needsBold = false;
};

/// A font in one size with the glyphs that have been needed so far.
struct SizedFont {
    Face face;
    FT_F26Dot6 size = 0;
    int ascent = 0;
    int height = 0;
    std::map<char32_t, Glyph> glyphs;
};

/// The list of the machine's fonts, from the first search to the end of the run.
struct FontList {
    FontList() { FcInit(); }
    ~FontList() { FcFini(); }
};

FontFile findFile(const std::string& name, bool bold) {
    static const FontList list;
    FontFile file;
    FcPattern* const wanted = FcPatternCreate();
    FcPatternAddString(wanted, FC_FAMILY, reinterpret_cast<const FcChar8*>(standInFor(name).c_str()));
    FcPatternAddInteger(wanted, FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcConfigSubstitute(nullptr, wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    FcResult result{};
    FcPattern* const found = FcFontMatch(nullptr, wanted, &result);
    FcChar8* path = nullptr;
    if (found != nullptr && FcPatternGetString(found, FC_FILE, 0, &path) == FcResultMatch) {
        file.path = reinterpret_cast<const char*>(path);
        FcPatternGetInteger(found, FC_INDEX, 0, &file.index);
        // A font without a bold face is given as a bold one that is still to be made so.
        FcBool embolden = FcFalse;
        FcPatternGetBool(found, FC_EMBOLDEN, 0, &embolden);
        int weight = FC_WEIGHT_REGULAR;
        FcPatternGetInteger(found, FC_WEIGHT, 0, &weight);
        file.needsBold = bold && (embolden == FcTrue || weight < FC_WEIGHT_DEMIBOLD);
    }
    if (found != nullptr) FcPatternDestroy(found);
    FcPatternDestroy(wanted);
    return file;
}

FT_Library library() {
    static const FT_Library opened = [] {
        FT_Library made = nullptr;
        FT_Init_FreeType(&made);
        return made;
    }();
    return opened;
}

const Face& faceOf(const std::string& name, bool bold) {
    static auto& faces = *new std::map<std::pair<std::string, bool>, Face>;
    const auto [at, isNew] = faces.try_emplace({name, bold});
    if (isNew) {
        const FontFile file = findFile(name, bold);
        FT_New_Face(library(), file.path.c_str(), file.index, &at->second.face);
        at->second.needsBold = file.needsBold;
    }
    return at->second;
}

SizedFont& sizedFont(const Font& font) {
    static auto& fonts = *new std::map<std::tuple<std::string, bool, long>, SizedFont>;
    const FT_F26Dot6 size = std::lround(font.points * fixedPoint);
    const auto [at, isNew] = fonts.try_emplace({font.name, font.bold, size});
    SizedFont& sized = at->second;
    if (!isNew) return sized;
    sized.face = faceOf(font.name, font.bold);
    sized.size = size;
    if (sized.face.face == nullptr) return sized;
    FT_Set_Char_Size(sized.face.face, 0, size, dotsPerInch, dotsPerInch);
    sized.ascent = static_cast<int>(sized.face.face->size->metrics.ascender / fixedPoint);
    sized.height = sized.ascent - static_cast<int>(sized.face.face->size->metrics.descender / fixedPoint);
    return sized;
}

Glyph rasterized(const SizedFont& font, char32_t character) {
    Glyph glyph;
    const FT_Face face = font.face.face;
    if (face == nullptr) return glyph;
    FT_Set_Char_Size(face, 0, font.size, dotsPerInch, dotsPerInch);
    if (FT_Load_Char(face, character, FT_LOAD_NO_BITMAP | FT_LOAD_TARGET_LIGHT) != 0) return glyph;
    const FT_GlyphSlot slot = face->glyph;
    const auto thicker = font.face.needsBold ? std::lround(font.size * dotsPerInch / pointsPerInch / boldenedPart) : 0L;
    if (thicker > 0) FT_Outline_Embolden(&slot->outline, thicker);
    glyph.advance = static_cast<int>((slot->advance.x + thicker + fixedPoint / 2) / fixedPoint);
    if (FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) != 0) return glyph;
    glyph.left = slot->bitmap_left;
    glyph.above = slot->bitmap_top;
    glyph.width = static_cast<int>(slot->bitmap.width);
    glyph.height = static_cast<int>(slot->bitmap.rows);
    for (int y = 0; y < glyph.height; ++y) {
        const uint8_t* line = slot->bitmap.buffer + static_cast<ptrdiff_t>(y) * slot->bitmap.pitch;
        glyph.cover.insert(glyph.cover.end(), line, line + glyph.width);
    }
    return glyph;
}

const Glyph& glyphOf(SizedFont& font, char32_t character) {
    const auto found = font.glyphs.find(character);
    if (found != font.glyphs.end()) return found->second;
    return font.glyphs.emplace(character, rasterized(font, character)).first->second;
}

/// Takes the next character off UTF-8 text; a broken sequence gives its bytes one by one.
char32_t nextCharacter(const std::string& text, size_t& at) {
    const auto byte = [&](size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
    const unsigned lead = byte(at);
    const size_t more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
    char32_t character = more == 0 ? lead : lead & (0x3FU >> more);
    for (size_t i = 1; i <= more; ++i) {
        if ((byte(at + i) & 0xC0) != 0x80) return byte(at++);
        character = (character << 6) | (byte(at + i) & 0x3F);
    }
    at += more + 1;
    return character;
}

template <class Use>
void forEachGlyph(const std::string& text, const Font& font, Use use) {
    SizedFont& sized = sizedFont(font);
    for (size_t at = 0; at < text.size();) use(glyphOf(sized, nextCharacter(text, at)));
}

uint32_t blended(uint32_t under, uint32_t over, int cover) {
    uint32_t result = 0xFF000000;
    for (int shift = 0; shift < 24; shift += 8) {
        const int from = static_cast<int>((under >> shift) & 0xFF);
        const int to = static_cast<int>((over >> shift) & 0xFF);
        result |= static_cast<uint32_t>(from + (to - from) * cover / 255) << shift;
    }
    return result;
}

void drawGlyph(Surface& surface, int left, int top, const Glyph& glyph, uint32_t pixel) {
    const int firstX = std::max(0, -left), lastX = std::min(glyph.width, surface.width() - left);
    const int firstY = std::max(0, -top), lastY = std::min(glyph.height, surface.height() - top);
    for (int y = firstY; y < lastY; ++y) {
        const uint8_t* cover = glyph.cover.data() + static_cast<ptrdiff_t>(y) * glyph.width;
        uint32_t* to = surface.row(top + y) + left;
        for (int x = firstX; x < lastX; ++x) to[x] = blended(to[x], pixel, cover[x]);
    }
}

}  // namespace

void drawText(Surface& surface, int x, int y, const std::string& text, const Font& font, Color color) {
    if (!surface.hasPixels()) return;
    const uint32_t pixel = pixelOf(color);
    const int baseLine = y + sizedFont(font).ascent;
    forEachGlyph(text, font, [&](const Glyph& glyph) {
        drawGlyph(surface, x + glyph.left, baseLine - glyph.above, glyph, pixel);
        x += glyph.advance;
    });
}

int measureText(const std::string& text, const Font& font) {
    int width = 0;
    forEachGlyph(text, font, [&](const Glyph& glyph) { width += glyph.advance; });
    return width;
}

}  // namespace platform

int sim::lineHeight(const platform::Font& font) { return platform::sizedFont(font).height; }
