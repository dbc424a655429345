// Reading the fields of an answer of the satellite receiver.
#pragma once

#include "core/ansi_text.h"
#include "core/text.h"
#include "tuners/xm/messages.h"

#include <stdexcept>

namespace vk {

/// Offsets count from the answer's first byte. What lies behind its end throws.
class XMMessages::Fields {
  public:
    explicit Fields(std::string_view payload) : payload_(payload) {}

    int operator[](std::size_t at) const { return static_cast<unsigned char>(Byte(at)); }
    /// Two bytes, the high one first.
    int Word(std::size_t at) const { return 256 * (*this)[at] + (*this)[at + 1]; }
    /// Bytes `first` to `last` up to a zero byte.
    std::string Text(std::size_t first, std::size_t last) const {
        return AnsiToUtf8(Bytes(first, last).substr(0, Bytes(first, last).find('\0')));
    }
    std::string Trimmed(std::size_t first, std::size_t last) const {
        return Trim(Text(first, last));
    }
    /// All of them, zero bytes taken for blanks.
    std::string Whole(std::size_t first, std::size_t last) const {
        std::string text(Bytes(first, last));
        for (char& c : text)
            if (c == '\0') c = ' ';
        return AnsiToUtf8(text);
    }
    std::string_view All() const { return payload_; }

  private:
    char Byte(std::size_t at) const {
        if (at >= payload_.size()) throw std::out_of_range("Subscript out of range");
        return payload_[at];
    }
    std::string_view Bytes(std::size_t first, std::size_t last) const {
        Byte(last);
        return payload_.substr(first, last - first + 1);
    }

    std::string_view payload_;
};

} // namespace vk
