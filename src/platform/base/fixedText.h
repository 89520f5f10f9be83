#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/base/codePage.h"

namespace platform {

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
