#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brindlet::sample {

/// Cuts what a client sends into commands. A command is a line; where the line ends in a literal's
/// length in braces, so many bytes and another line belong to it. A bare line feed ends a line,
/// too.
class ImapInput {
  public:
    enum class Event {
        /// More bytes are needed.
        none,
        /// `command` is complete.
        command,
        /// The client waits for a word before it sends its literal.
        literal,
        /// More than any command needs; what follows can no longer be told apart.
        tooMuch,
    };

    void add(std::string_view bytes) { bytes_ += bytes; }
    Event next();
    /// The last one, without its line end, its literals as they came. Valid until the next call.
    const std::string& command() const { return command_; }

  private:
    std::string bytes_;
    /// Where the line in hand begins: behind the last literal.
    std::size_t line_ = 0;
    std::string command_;
};

/// A literal's announcement at the end of a line: "{12}", or "{12+}" when the client does not wait.
struct LiteralMark {
    /// How many bytes the mark itself takes; 0 when there is none.
    std::size_t length = 0;
    std::size_t size = 0;
    bool waits = true;
};
LiteralMark literalMark(std::string_view line);

}  // namespace brindlet::sample
