#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/Date.h"
#include "classify/Category.h"
#include "sample/SampleFacts.h"

namespace brindlet::demo {

/// Whether the message was written as something that is junk unless somebody says otherwise.
bool isJunkMail(const sample::SampleFacts::Message& message);

/// Looks up the sample mail by account and folder, both by name. The facts must outlive it; what
/// is not there is nothing.
class PastMail {
  public:
    using Message = sample::SampleFacts::Message;

    explicit PastMail(const sample::SampleFacts& facts);

    std::string id(std::string_view account) const;
    std::string address(std::string_view account) const;

    struct Span {
        Date from;
        Date until;
    };
    /// What a folder holds from that time, newest first.
    std::vector<const Message*> sent(std::string_view account, std::string_view folder,
                                     const Span& span) const;

    struct Writer {
        std::string sender;
        /// Of one of the messages.
        std::string subject;
    };
    /// Who writes most of each kind of mail in a folder, the busiest first.
    std::map<Category, std::vector<Writer>> frequentSenders(std::string_view account,
                                                            std::string_view folder) const;

  private:
    const sample::SampleFacts::Account* find(std::string_view account) const;
    std::vector<const Message*> all(std::string_view account, std::string_view folder) const;

    const sample::SampleFacts& facts_;
    std::map<std::int64_t, const Message*> byRow_;
};

}  // namespace brindlet::demo
