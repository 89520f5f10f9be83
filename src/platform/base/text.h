#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace platform {

/// The characters of UTF-8 text.
std::u32string charactersOf(std::string_view text);

/// The text in the single-byte code page 1252: the characters of western Europe, one byte each. What has no place in it
/// becomes "?", a control character and broken UTF-8 too.
std::string toCodePage(std::string_view text);

/// Bytes of the code page as UTF-8 text; a byte that stands for no printable character becomes "?".
std::string fromCodePage(std::string_view bytes);

/// A text of always so many characters of the code page, one byte each, with blanks behind it; blank at first.
template <size_t Length>
class FixedText {
  public:
    FixedText() : bytes_(Length, ' ') {}

    /// Takes UTF-8 text, cut to its first characters if it is longer.
    FixedText& operator=(std::string_view text) {
        setBytes(toCodePage(text));
        return *this;
    }

    std::string text() const { return fromCodePage(bytes_); }  ///< As UTF-8, with its blanks.

    const std::string& bytes() const { return bytes_; }
    void setBytes(std::string bytes) {  ///< Cut or filled up with blanks to the length.
        bytes.resize(Length, ' ');
        bytes_ = std::move(bytes);
    }

  private:
    std::string bytes_;
};

}  // namespace platform
