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
    /// Calls with each sender of a rule that would cover this address: the whole of it, its domain
    /// and each parent domain. None comes twice; the views live as long as this object.
    template <class F>
    void eachCovering(F&& call) const {
        const auto host = domain();
        if (host.size() != text_.size()) call(whole());
        call(host);
        for (auto dot = host.find('.'); dot != std::string_view::npos;
             dot = host.find('.', dot + 1))
            call(host.substr(dot + 1));
    }

  private:
    std::string text_;
    std::size_t domainStart_;
};

/// The part of a raw sender between the last "<" and a later last ">"; the whole of it when it has
/// no such pair.
std::string_view angleBracketed(std::string_view rawSender);

}  // namespace brindlet
