#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

namespace platform {

/// True if there is anything of that name, also what no file can be made of or read from: a folder, a pipe, a link to
/// nothing. True as well where the folder doesn't let itself be looked into.
inline bool isThere(const std::string& path) {
    std::error_code unreadable;
    return std::filesystem::symlink_status(path, unreadable).type() != std::filesystem::file_type::not_found;
}

/// True if that is an ordinary file, or a link to one: what can be read without the danger of waiting.
inline bool isOrdinaryFile(const std::string& path) {
    std::error_code unreadable;
    return std::filesystem::is_regular_file(path, unreadable);
}

/// True if that is an ordinary file of so many bytes at most.
inline bool isFileWithin(const std::string& path, uintmax_t most) {
    std::error_code unreadable;
    return isOrdinaryFile(path) && std::filesystem::file_size(path, unreadable) <= most;
}

/// What an ordinary file of so many bytes at most holds, and nothing for all else, such as a file that is larger or
/// can't be read. Takes no more memory than that.
inline std::string contentsWithin(const std::string& path, uintmax_t most) {
    if (!isFileWithin(path, most)) return {};
    std::error_code unreadable;
    const uintmax_t size = std::filesystem::file_size(path, unreadable);
    std::ifstream in(path, std::ios::binary);
    std::string bytes(size <= most ? static_cast<size_t>(size) : 0, '\0');
    in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<size_t>(in.gcount()));
    return bytes;
}

/// An ordinary file, open for reading and writing as long as this lives.
class File {
  public:
    /// Opens the file, and makes it, empty, if there is nothing of that name. Never waits. Fails with number 53 for a
    /// link to nothing, 67 if too many files are open, 70 without the right to read and write it, 75 for what is no
    /// ordinary file or can't be opened for another reason.
    explicit File(const std::string& path);
    ~File();
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    /// So many bytes from that place on, counted from 0, fewer if the file is shorter. Fails with number 57, also if
    /// the disk gives less than the file has, or 75.
    std::string read(size_t count, size_t from = 0) const;

    /// Writes over the beginning in one go; what lies behind it stays. Fails with number 61 if the disk is full, 57 or
    /// 75 else; a write that was cut off is undone, and so is one that a disk refuses only as the file is closed. If
    /// the disk lets it be neither finished nor undone, a part of it stays, and the number is 57.
    void write(const std::string& bytes);

  private:
    void checkEnd(size_t length) const;

    std::string path_;
    int handle_;
};

}  // namespace platform
