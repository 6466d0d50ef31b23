#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "screens/results/SenderGroups.h"

namespace brindlet::screens {

/// Which row of an open category holds what: messages, or senders of whom one may be open, and then
/// the messages that protection kept, under their heading if they have one. Nothing is kept per
/// row; where a row stands is reckoned.
class MessageRows {
  public:
    enum class Kind { message, sender, heading };
    struct Row {
        Kind kind = Kind::message;
        /// A message's position among the verdicts, or a sender's number.
        std::uint32_t at = 0;
        /// A message below its open sender.
        bool indented = false;
    };

    /// One row a message. `positions` are ascending up to `firstProtected`, and again from there.
    void list(std::vector<std::uint32_t> positions, std::size_t firstProtected, bool heading);
    /// One row a sender; the protected messages, ascending, stay rows of their own.
    void group(SenderGroups senders, std::vector<std::uint32_t> kept, bool heading);
    /// Opens a sender, which must be closed first when another is open.
    void open(std::size_t sender) { open_ = sender; }
    void close() { open_.reset(); }

    std::size_t size() const;
    Row at(std::size_t row) const;
    std::optional<std::size_t> openSender() const { return open_; }
    const SenderGroups& senders() const { return senders_; }
    std::size_t rowOfSender(std::size_t sender) const;
    /// None for a message that has no row now.
    std::optional<std::size_t> rowOfMessage(std::uint32_t position) const;

  private:
    std::size_t openCount() const { return open_ ? senders_.members(*open_).size() : 0; }
    /// Rows before the heading.
    std::size_t upper() const { return plain_.size() + senders_.size() + openCount(); }

    std::vector<std::uint32_t> plain_;
    SenderGroups senders_;
    std::optional<std::size_t> open_;
    std::vector<std::uint32_t> kept_;
    bool heading_ = false;
};

}  // namespace brindlet::screens
