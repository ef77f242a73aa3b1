// A run of bytes inside a text that several records share. A large diff has millions of lines;
// giving each its own string would cost an allocation and a copy a line, so the lines of a
// parse point into the one text git printed, and every copy of a line keeps that text alive.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace orvel {

class TextSlice {
  public:
    TextSlice() = default;
    // A slice of `text`; offset and size must lie within it and each fit in 32 bits.
    TextSlice(std::shared_ptr<const std::string> text, std::size_t offset, std::size_t size)
        : text_(std::move(text)), offset_(static_cast<std::uint32_t>(offset)),
          size_(static_cast<std::uint32_t>(size)) {}
    // A text of its own (at most 4 GiB of it are seen).
    explicit TextSlice(std::string_view bytes)
        : text_(std::make_shared<const std::string>(bytes)),
          size_(static_cast<std::uint32_t>(std::min<std::size_t>(bytes.size(), UINT32_MAX))) {}

    std::string_view view() const {
        return text_ ? std::string_view(*text_).substr(offset_, size_) : std::string_view();
    }
    operator std::string_view() const { return view(); }
    std::string str() const { return std::string(view()); }
    const char* data() const { return view().data(); }
    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }

    friend bool operator==(const TextSlice& left, const TextSlice& right) {
        return left.view() == right.view();
    }
    friend bool operator==(const TextSlice& left, std::string_view right) { return left.view() == right; }

  private:
    std::shared_ptr<const std::string> text_;
    std::uint32_t offset_ = 0;
    std::uint32_t size_ = 0;
};

} // namespace orvel
