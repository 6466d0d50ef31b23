#pragma once

#include <memory>
#include <string>

#include "sample/ImapAccount.h"

namespace brindlet::sample {

/// The Gmail accounts of a sample home, as Gmail's server keeps them: the same files and the same
/// index that the simulated mail program has, so that either sees at once what the other has done.
/// Messages live in All Mail, Spam and the bin; everything else is a label. Any thread.
class GmailMail {
  public:
    /// None when the home has no mail program's settings or no index.
    static std::unique_ptr<GmailMail> open(const std::string& home);
    ~GmailMail();
    GmailMail(const GmailMail&) = delete;
    GmailMail& operator=(const GmailMail&) = delete;

    /// The account with that address, whatever its letter case; none when no Gmail account has it.
    /// This must outlive it.
    std::unique_ptr<ImapAccount> account(const std::string& address);

  private:
    class Account;
    struct State;
    explicit GmailMail(std::unique_ptr<State> state);
    const std::unique_ptr<State> state_;
};

}  // namespace brindlet::sample
