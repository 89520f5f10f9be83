// Writes the thunder as a wave file at the path that is given.

#include <fstream>
#include <iostream>

#include "thunder.h"

int main(int count, char** words) {
    if (count != 2) {
        std::cerr << "usage: make_thunder FILE\n";
        return 2;
    }
    const std::vector<uint8_t> bytes = thunder::waveFile(thunder::makeSamples());
    std::ofstream file(words[1], std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), std::streamsize(bytes.size()));
    file.close();
    if (!file) {
        std::cerr << "make_thunder: " << words[1] << " can't be written\n";
        return 1;
    }
}
