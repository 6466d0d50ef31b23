#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "mail/MailAccount.h"

namespace brindlet {

/// What the mail program's scripting says of one account.
struct MailIdentity {
    std::string name;
    /// Its first e-mail address; may be empty.
    std::string address;
    /// The lower-cased names of its mailboxes.
    std::set<std::string> folders;

    friend bool operator==(const MailIdentity&, const MailIdentity&) = default;
};

/// From the mail program's account name to the lower-cased names of its mailboxes.
using MailboxNames = std::map<std::string, std::set<std::string>>;
/// From an account's id in upper case to what the system's account database calls it.
using AccountLabels = std::map<std::string, std::string>;

/// The texts that the two listing scripts print, taken apart. A line "@@<name>" opens an account
/// (in the second "@@<name>|<address>"), every other line is a mailbox of it. Any thread.
MailboxNames parseMailboxNames(std::string_view listing);
std::vector<MailIdentity> parseIdentities(std::string_view listing);

/// Gives accounts of the index their names and addresses: first by label, then, for those whose
/// label is not what the mail program calls them, by the mailboxes that both sides have in common.
/// An identity is used once. The order of the accounts decides who comes first.
void identifyAccounts(std::vector<MailAccount>& accounts,
                      const std::vector<MailIdentity>& identities, const AccountLabels& labels);

/// Makes the accounts' folders those that the mail program lists: the index keeps rows of mailboxes
/// that are gone and lags behind new ones. A folder that only the listing knows gets a negative id,
/// the same in every run. Accounts that the listing does not know stay as they are.
void mergeMailboxNames(std::vector<MailAccount>& accounts, const MailboxNames& names);

/// The id of a folder that only the listing knows.
std::int64_t listedFolderId(std::string_view name);

}  // namespace brindlet
