#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// A picture in memory: rows from the top, a pixel as 0xFFRRGGBB.
struct PngImage {
    int width = 0;
    int height = 0;
    bool trueColour24 = false;  ///< The file held 24-bit colour without alpha.
    std::vector<uint32_t> pixels;

    uint32_t at(int x, int y) const { return pixels[static_cast<size_t>(y) * width + x]; }
};

/// Reads a PNG file; throws std::runtime_error with the path and the reason if it can't be read.
PngImage readPng(const std::string& path);
