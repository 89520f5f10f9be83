// Turns PNG files into what the program carries of them: one file of plain pixels, the assembler source that takes it
// into the program and the table of the pictures in it. Plain pixels cost no decoding when the game starts. Those of a
// higher density become a file of their own, in the same order.

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "tools/png.h"

namespace {

std::ofstream created(const std::filesystem::path& path) {
    std::ofstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("can't write " + path.string());
    return file;
}

void write(std::ofstream& file, const PngImage& image) {
    file.write(reinterpret_cast<const char*>(image.pixels.data()),
               static_cast<std::streamsize>(image.pixels.size() * sizeof(uint32_t)));
}

void finish(std::ofstream& file) {
    if (!file.flush()) throw std::runtime_error("can't write the pixels");
}

/// What the program carries. Of the pictures behind "--alone" there is no higher density.
void store(const std::filesystem::path& folder, std::span<char*> arguments) {
    auto pixels = created(folder / "storedPictures.bin");
    auto table = created(folder / "storedPictures.cpp");
    table << "#include \"platform/pictures.h\"\n\n"
             "extern \"C\" const uint32_t storedPixelData[];\n\n"
             "namespace platform {\n\n"
             "std::span<const StoredPicture> storedPictures() {\n"
             "    static const StoredPicture table[] = {\n";
    size_t offset = 0;
    std::optional<size_t> withDensities;
    for (const char* argument : arguments) {
        if (std::string_view(argument) == "--alone") {
            withDensities = offset;
            continue;
        }
        const PngImage image = readPng(argument);
        table << "        {\"" << std::filesystem::path(argument).stem().string() << "\", {" << image.width << ", "
              << image.height << ", storedPixelData + " << offset << "}},\n";
        write(pixels, image);
        offset += image.pixels.size();
    }
    table << "    };\n    return table;\n}\n\n"
             "std::span<const uint32_t> storedPixels() { return {storedPixelData, "
          << withDensities.value_or(offset) << "}; }\n\n}  // namespace platform\n";

    created(folder / "storedPixels.S") << "    .section .rodata\n"
                                          "    .global storedPixelData\n"
                                          "    .balign 64\n"
                                          "storedPixelData:\n"
                                          "    .incbin \""
                                       << (folder / "storedPictures.bin").string()
                                       << "\"\n"
                                          "    .section .note.GNU-stack,\"\",%progbits\n";
    finish(pixels);
}

/// The pixels of a higher density, which lie beside the program.
void storeSet(const std::filesystem::path& path, std::span<char*> pictures) {
    auto pixels = created(path);
    for (const char* picture : pictures) write(pixels, readPng(picture));
    finish(pixels);
}

}  // namespace

int main(int argc, char** argv) {
    const std::span<char*> arguments(argv, static_cast<size_t>(argc));
    if (argc < 4) {
        std::fprintf(stderr,
                     "usage: storePictures FOLDER PICTURE.png... [--alone PICTURE.png...]\n"
                     "       storePictures --set FILE PICTURE.png...\n");
        return 2;
    }
    try {
        if (std::string_view(argv[1]) == "--set")
            storeSet(argv[2], arguments.subspan(3));
        else
            store(std::filesystem::absolute(argv[1]), arguments.subspan(2));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "storePictures: %s\n", error.what());
        return 1;
    }
    return 0;
}
