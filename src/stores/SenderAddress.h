#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brindlet {

/// The address in a message's raw sender, as rules are held against it: what stands between the
/// last "<" and a later last ">", or else all of it; lower case, without blanks around it.
class SenderAddress {
  public:
    explicit SenderAddress(std::string_view rawSender);

    /// The views live as long as this object.
    std::string_view whole() const { return text_; }
    /// What follows the last "@"; the whole address when there is none.
    std::string_view domain() const { return whole().substr(domainStart_); }

    /// True when a rule's sender covers this address: an address covers itself alone, a bare domain
    /// also its subdomains.
    bool coveredBy(std::string_view ruleSender) const;

  private:
    std::string text_;
    std::size_t domainStart_;
};

/// The part of a raw sender between the last "<" and a later last ">"; the whole of it when it has
/// no such pair.
std::string_view angleBracketed(std::string_view rawSender);

}  // namespace brindlet
