#pragma once

#include <string>
#include <vector>

#include "mail/MailFolder.h"

namespace brindlet {

/// One account of the mail program: an immutable value, copied freely between threads.
struct MailAccount {
    /// The 36 characters that stand for the account in mailbox URLs, letter case kept.
    std::string id;
    /// Empty when it could not be established.
    std::string address;
    /// Empty when no source names it.
    std::string name;
    std::vector<MailFolder> folders;

    friend bool operator==(const MailAccount&, const MailAccount&) = default;

    /// How the account is named to the person: address, else name, else the first 8 characters of
    /// the id.
    std::string displayLabel() const;
};

/// The fullest account first, by the sum of its folders' counts. Equals keep their order.
void sortAccounts(std::vector<MailAccount>& accounts);

}  // namespace brindlet
