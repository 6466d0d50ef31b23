#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brindlet::sample {

/// Takes one command apart from left to right (RFC 3501, section 9). What does not fit is left
/// where it stands.
class ImapParser {
  public:
    /// The text must outlive it.
    explicit ImapParser(std::string_view command) : rest_(command) {}

    bool atEnd() const { return rest_.empty(); }
    /// Exactly this, but for the case of ASCII letters.
    bool take(std::string_view expected);
    /// Characters that may stand unquoted.
    std::optional<std::string> atom();
    /// The same, with "*" and "%" among them.
    std::optional<std::string> wildcards();
    /// An atom, a quoted text or a literal.
    std::optional<std::string> text();
    /// A text, or an atom behind a backslash.
    std::optional<std::string> label();

  private:
    template <class Stands>
    std::optional<std::string> run(Stands stands);
    std::optional<std::string> quoted();
    std::optional<std::string> literal();

    std::string_view rest_;
};

/// The same letters, whatever their case in ASCII.
bool sameAscii(std::string_view one, std::string_view other);

}  // namespace brindlet::sample
