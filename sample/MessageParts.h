#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "sample/SampleTexts.h"

namespace brindlet::sample {

/// A filled card.
struct Piece {
    std::string title;
    std::string text;
};

/// What one message says, before it is put into any form.
struct Letter {
    std::string subject;
    std::vector<std::string> paragraphs;
    std::string_view senderName;
    std::string_view senderDomain;
    /// From a company or list, with a masthead, buttons and a footer.
    bool machineSent = false;
    std::uint64_t key = 0;
};

/// Gives the n-th filler of a message; any n.
class Filler {
  public:
    Filler(const SampleTexts& texts, const Family& family, const Filling& filling)
        : texts_(texts), family_(family), filling_(filling) {}
    Piece piece(std::size_t number) const;

  private:
    const SampleTexts& texts_;
    const Family& family_;
    const Filling& filling_;
};

/// The text with the quotation marks and dashes of a careful typesetter, which are not ASCII.
std::string typeset(std::string_view text);
std::string htmlEscaped(std::string_view text);
/// So many letters and digits that depend on the key, for links and boundaries.
std::string token(std::uint64_t key, std::size_t length);

/// An HTML text of about the given size; longer only where the letter itself is longer.
std::string htmlPart(const Letter& letter, const Filler& filler, std::string_view style,
                     std::string_view charset, std::size_t size);
/// A plain text of about the given size, likewise.
std::string plainPart(const Letter& letter, const Filler& filler, std::size_t size);

}  // namespace brindlet::sample
