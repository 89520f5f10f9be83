#include "tools/png.h"

#include <png.h>

#include <stdexcept>

namespace {

/// libpng's simplified reader, released on every way out.
struct PngHandle {
    png_image image{};

    PngHandle() { image.version = PNG_IMAGE_VERSION; }
    PngHandle(const PngHandle&) = delete;
    PngHandle& operator=(const PngHandle&) = delete;
    ~PngHandle() { png_image_free(&image); }

    [[noreturn]] void fail(const std::string& path) const { throw std::runtime_error(path + ": " + image.message); }
};

}  // namespace

PngImage readPng(const std::string& path) {
    PngHandle handle;
    png_image& image = handle.image;
    if (png_image_begin_read_from_file(&image, path.c_str()) == 0) handle.fail(path);

    PngImage result;
    result.trueColour24 = (image.format & (PNG_FORMAT_FLAG_ALPHA | PNG_FORMAT_FLAG_COLORMAP)) == 0 &&
                          (image.format & PNG_FORMAT_FLAG_COLOR) != 0;
    result.width = static_cast<int>(image.width);
    result.height = static_cast<int>(image.height);
    image.format = PNG_FORMAT_BGRA;
    result.pixels.resize(static_cast<size_t>(image.width) * image.height);
    const png_color black{};
    if (png_image_finish_read(&image, &black, result.pixels.data(), 0, nullptr) == 0) handle.fail(path);
    return result;
}
