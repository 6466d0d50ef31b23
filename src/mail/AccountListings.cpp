#include <algorithm>

#include "base/Utf8.h"
#include "mail/AccountsDatabase.h"
#include "mail/MailStore.h"
#include "mail/Resources.h"
#include "platform/Directories.h"
#include "platform/ProcessRunner.h"

namespace brindlet {
namespace {

struct Listing {
    std::string text;
    int status = -1;
};

/// Runs one listing script to its end. There is no limit of time: it ends when the mail program has
/// answered.
Listing runListing(const Services& services, std::string_view script) {
    const auto child = services.processes.make({services.scriptHost, "-e", std::string(script)});
    if (!child->launch()) return {};
    child->writeInput({});
    Listing listing;
    listing.text = repairedUtf8(child->readOutput());
    listing.status = child->wait();
    return listing;
}

}  // namespace

MailboxNames MailStore::listMailboxNames() const {
    const auto listing = runListing(services_, resources::listMailboxNamesScript);
    return listing.status == 0 ? parseMailboxNames(listing.text) : MailboxNames();
}

std::vector<MailIdentity> MailStore::listIdentities() const {
    return parseIdentities(runListing(services_, resources::listIdentitiesScript).text);
}

void MailStore::identify(std::vector<MailAccount>& accounts, bool afresh) const {
    if (const auto cache = identityCache_.get(); !afresh && !cache.empty()) {
        for (auto& account : accounts) {
            const auto known = cache.find(account.id);
            if (known == cache.end()) continue;
            account.address = known->second.address;
            account.name = known->second.name;
        }
        return;
    }
    const auto identities = listIdentities();
    AccountLabels labels;
    {
        Lock turn(accountsTurn_);
        labels =
            readAccountsDatabase(services_.directories.home(), services_.directories.temporary());
    }
    identifyAccounts(accounts, identities, labels);
    IdentityCache cache;
    for (const auto& account : accounts) cache[account.id] = {account.address, account.name};
    identityCache_.set(std::move(cache));
}

std::vector<MailAccount> MailStore::loadAccounts(bool afresh, bool mergeListing) const {
    auto accounts = readAccounts();
    identify(accounts, afresh);
    if (mergeListing) mergeMailboxNames(accounts, listMailboxNames());
    accounts.erase(std::remove_if(accounts.begin(), accounts.end(),
                                  [](const MailAccount& each) { return each.folders.empty(); }),
                   accounts.end());
    sortAccounts(accounts);
    return accounts;
}

}  // namespace brindlet
