#pragma once

#include <array>
#include <cerrno>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

/// A run-time failure: its number, as the player sees it in a report, and its description.
class RuntimeError : public std::runtime_error {
  public:
    RuntimeError(int32_t number, const std::string& description) : std::runtime_error(description), number_(number) {}
    int32_t number() const { return number_; }

  private:
    int32_t number_;
};

/// The failures that the program can meet, each with its one description.
namespace failure {
[[noreturn]] inline void overflow() { throw RuntimeError(6, "Overflow"); }
[[noreturn]] inline void subscript() { throw RuntimeError(9, "Subscript out of range"); }
[[noreturn]] inline void printerError(const std::string& why = "") {
    throw RuntimeError(482, "Printer error" + (why.empty() ? "" : ": " + why));
}

/// What the system's error number says of a file; 0 stands for what is no ordinary file.
[[noreturn]] inline void ofFile(int error, const std::string& name) {
    switch (error) {
        case ENOENT:
            throw RuntimeError(53, "File not found: " + name);
        case EIO:
            throw RuntimeError(57, "Device I/O error: " + name);
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            throw RuntimeError(61, "Disk full: " + name);
        case EMFILE:
        case ENFILE:
            throw RuntimeError(67, "Too many files: " + name);
        case EACCES:
        case EPERM:
        case EROFS:
        case EAGAIN:  // Somebody else has locked it.
            throw RuntimeError(70, "Permission denied: " + name);
        default:
            throw RuntimeError(75, "Path/File access error: " + name);
    }
}
}  // namespace failure

/// A fixed table with its own index range, First to Last; an index outside it fails with number 9.
template <class Entry, int First, int Last>
class Table {
  public:
    constexpr Entry& operator[](int index) { return entries_[position(index)]; }
    constexpr const Entry& operator[](int index) const { return entries_[position(index)]; }

    constexpr auto begin() { return entries_.begin(); }
    constexpr auto end() { return entries_.end(); }
    constexpr auto begin() const { return entries_.begin(); }
    constexpr auto end() const { return entries_.end(); }

  private:
    static constexpr size_t position(int index) {
        if (index < First || index > Last) failure::subscript();
        return static_cast<size_t>(index - First);
    }

    std::array<Entry, Last - First + 1> entries_{};
};

/// The row of a table of fixed facts, counted from 1; an index outside it fails with number 9.
template <class Row, size_t Rows>
constexpr const Row& rowOf(const Row (&rows)[Rows], int index) {
    if (index < 1 || index > static_cast<int>(Rows)) failure::subscript();
    return rows[index - 1];
}

/// A table that grows, indexed from 1; an index outside it fails with number 9.
template <class Entry>
class DynamicTable {
  public:
    int count() const { return static_cast<int>(entries_.size()); }
    void resize(int count) { entries_.resize(static_cast<size_t>(count)); }  ///< Keeps what it holds.
    void clear() { entries_.clear(); }

    Entry& operator[](int index) { return entries_[position(index)]; }
    const Entry& operator[](int index) const { return entries_[position(index)]; }

  private:
    size_t position(int index) const {
        if (index < 1 || index > count()) failure::subscript();
        return static_cast<size_t>(index - 1);
    }

    std::vector<Entry> entries_;
};

/// The value in a narrower integer type; a value that doesn't fit fails with number 6.
template <class Narrow, class Wide>
constexpr Narrow narrowed(Wide value) {
    if constexpr (std::is_floating_point_v<Wide>) {
        if (!(value >= static_cast<Wide>(std::numeric_limits<Narrow>::min()) &&
              value <= static_cast<Wide>(std::numeric_limits<Narrow>::max())))
            failure::overflow();
    } else {
        if (!std::in_range<Narrow>(value)) failure::overflow();
    }
    return static_cast<Narrow>(value);
}

template <class Wide>
constexpr int16_t narrow16(Wide value) {
    return narrowed<int16_t>(value);
}

template <class Wide>
constexpr int32_t narrow32(Wide value) {
    return narrowed<int32_t>(value);
}
