#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brindlet {

/// Text that must not linger in memory: its bytes are overwritten when it goes. It has a place of
/// its own from the start and never grows, so that no copy is left behind. Copying is explicit.
class Secret {
  public:
    Secret() = default;
    /// The caller's own copy stays the caller's to wipe.
    explicit Secret(std::string_view text);
    /// The parts one after another.
    static Secret joined(const std::vector<std::string_view>& parts);
    ~Secret();
    Secret(Secret&& other) noexcept;
    Secret& operator=(Secret&& other) noexcept;

    std::string_view text() const { return {bytes_.get(), size_}; }
    bool empty() const { return size_ == 0; }

  private:
    explicit Secret(std::size_t size);
    void wipe();

    std::unique_ptr<char[]> bytes_;
    std::size_t size_ = 0;
};

/// Overwrites a text of ours with zeros, whatever the optimiser thinks of it, and empties it.
void wipe(std::string& text);

}  // namespace brindlet
