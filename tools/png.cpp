#include "tools/png.h"

#include <png.h>

#include <stdexcept>

PngImage readPng(const std::string& path) {
    png_image image{};  // libpng releases what it holds once the picture is read or can't be.
    image.version = PNG_IMAGE_VERSION;
    const auto require = [&](int isRead) {
        if (isRead == 0) throw std::runtime_error(path + ": " + image.message);
    };
    require(png_image_begin_read_from_file(&image, path.c_str()));

    PngImage result;
    result.trueColour24 = (image.format & (PNG_FORMAT_FLAG_ALPHA | PNG_FORMAT_FLAG_COLORMAP)) == 0 &&
                          (image.format & PNG_FORMAT_FLAG_COLOR) != 0;
    result.width = static_cast<int>(image.width);
    result.height = static_cast<int>(image.height);
    image.format = PNG_FORMAT_BGRA;
    result.pixels.resize(static_cast<size_t>(image.width) * image.height);
    const png_color black{};
    require(png_image_finish_read(&image, &black, result.pixels.data(), 0, nullptr));
    return result;
}
