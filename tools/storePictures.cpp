// Turns PNG files into what the program carries of them: one file of plain pixels, the assembler source that takes it
// into the program and the table of the pictures in it. Plain pixels cost no decoding when the game starts.

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "tools/png.h"

namespace {

std::ofstream created(const std::filesystem::path& path) {
    std::ofstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("can't write " + path.string());
    return file;
}

void store(const std::filesystem::path& folder, int count, char** paths) {
    auto pixels = created(folder / "storedPictures.bin");
    auto table = created(folder / "storedPictures.cpp");
    table << "#include \"platform/pictures.h\"\n\n"
             "extern \"C\" const uint32_t storedPixels[];\n\n"
             "namespace platform {\n\n"
             "std::span<const StoredPicture> storedPictures() {\n"
             "    static const StoredPicture table[] = {\n";
    size_t offset = 0;
    for (int i = 0; i < count; ++i) {
        const PngImage image = readPng(paths[i]);
        const std::string name = std::filesystem::path(paths[i]).stem().string();
        table << "        {\"" << name << "\", {" << image.width << ", " << image.height << ", storedPixels + "
              << offset << "}},\n";
        pixels.write(reinterpret_cast<const char*>(image.pixels.data()),
                     static_cast<std::streamsize>(image.pixels.size() * sizeof(uint32_t)));
        offset += image.pixels.size();
    }
    table << "    };\n    return table;\n}\n\n}  // namespace platform\n";

    created(folder / "storedPixels.S") << "    .section .rodata\n"
                                          "    .global storedPixels\n"
                                          "    .balign 64\n"
                                          "storedPixels:\n"
                                          "    .incbin \""
                                       << (folder / "storedPictures.bin").string()
                                       << "\"\n"
                                          "    .section .note.GNU-stack,\"\",%progbits\n";
    if (!pixels.flush()) throw std::runtime_error("can't write the pixels");
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: storePictures FOLDER PICTURE.png...\n");
        return 2;
    }
    try {
        store(std::filesystem::absolute(argv[1]), argc - 2, argv + 2);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "storePictures: %s\n", error.what());
        return 1;
    }
    return 0;
}
