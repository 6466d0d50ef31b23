#include "base/Secret.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace brindlet {
namespace {

void overwrite(char* bytes, std::size_t size) {
    std::fill_n(static_cast<volatile char*>(bytes), size, '\0');
    std::atomic_signal_fence(std::memory_order_seq_cst);
}

}  // namespace

Secret::Secret(std::size_t size) : bytes_(std::make_unique<char[]>(size)), size_(size) {}

Secret::Secret(std::string_view text) : Secret(text.size()) {
    std::copy(text.begin(), text.end(), bytes_.get());
}

Secret Secret::joined(const std::vector<std::string_view>& parts) {
    std::size_t size = 0;
    for (const auto part : parts) size += part.size();
    Secret whole(size);
    char* end = whole.bytes_.get();
    for (const auto part : parts) end = std::copy(part.begin(), part.end(), end);
    return whole;
}

Secret::~Secret() {
    wipe();
}

Secret::Secret(Secret&& other) noexcept
    : bytes_(std::move(other.bytes_)), size_(std::exchange(other.size_, 0)) {}

Secret& Secret::operator=(Secret&& other) noexcept {
    if (this == &other) return *this;
    wipe();
    bytes_ = std::move(other.bytes_);
    size_ = std::exchange(other.size_, 0);
    return *this;
}

void Secret::wipe() {
    if (bytes_) overwrite(bytes_.get(), size_);
    size_ = 0;
}

void wipe(std::string& text) {
    overwrite(text.data(), text.size());
    text.clear();
}

}  // namespace brindlet
