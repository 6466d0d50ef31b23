#include "mail/AccountDiscovery.h"

#include <algorithm>
#include <functional>
#include <optional>

#include "base/Text.h"

namespace brindlet {
namespace {

constexpr std::string_view accountMark = "@@";
/// One mailbox in common is no evidence: every account has an inbox.
constexpr std::size_t leastInCommon = 2;

/// Every line that is not empty, blanks trimmed off both ends.
void forEachLine(std::string_view listing, const std::function<void(std::string_view)>& deed) {
    while (!listing.empty()) {
        const auto end = listing.find('\n');
        const auto line = trimBlanks(listing.substr(0, end));
        if (!line.empty()) deed(line);
        listing.remove_prefix(end == std::string_view::npos ? listing.size() : end + 1);
    }
}

/// What follows the mark, when the line opens an account.
std::optional<std::string_view> openedAccount(std::string_view line) {
    if (line.substr(0, accountMark.size()) != accountMark) return std::nullopt;
    return line.substr(accountMark.size());
}

std::set<std::string> leafNames(const std::vector<MailFolder>& folders) {
    std::set<std::string> names;
    for (const auto& folder : folders) names.insert(lowercased(MailFolder::leafName(folder.name)));
    return names;
}

std::size_t inCommon(const std::set<std::string>& names, const std::set<std::string>& others) {
    return static_cast<std::size_t>(
        std::count_if(names.begin(), names.end(),
                      [&](const std::string& name) { return others.count(name) > 0; }));
}

std::string usableAddress(const MailIdentity& identity) {
    if (!identity.address.empty()) return identity.address;
    return identity.name.find('@') == std::string::npos ? std::string() : identity.name;
}

/// One run of the identification, over accounts and identities that it matches up.
class Matching {
  public:
    Matching(std::vector<MailAccount>& accounts, const std::vector<MailIdentity>& identities)
        : accounts_(accounts), identities_(identities), matched_(accounts.size(), false) {}

    void byLabel(const AccountLabels& labels) {
        for (std::size_t i = 0; i < accounts_.size(); ++i) {
            const auto label = labels.find(uppercased(accounts_[i].id));
            if (label == labels.end()) continue;
            accounts_[i].name = label->second;
            const auto wanted = lowercased(label->second);
            // Only the first of that name: when it does not do, no second one is looked for.
            const auto identity = std::find_if(
                identities_.begin(), identities_.end(),
                [&](const MailIdentity& each) { return lowercased(each.name) == wanted; });
            if (identity != identities_.end() && !isTaken(*identity)) take(i, *identity);
        }
    }

    void byFolders() {
        struct Pair {
            std::size_t score;
            std::size_t account;
            const MailIdentity* identity;
        };
        std::vector<Pair> pairs;
        for (std::size_t i = 0; i < accounts_.size(); ++i) {
            if (matched_[i]) continue;
            const auto names = leafNames(accounts_[i].folders);
            for (const auto& identity : identities_)
                if (!isTaken(identity))
                    pairs.push_back({inCommon(names, identity.folders), i, &identity});
        }
        std::stable_sort(pairs.begin(), pairs.end(),
                         [](const Pair& a, const Pair& b) { return a.score > b.score; });
        for (const auto& pair : pairs)
            if (pair.score >= leastInCommon && !matched_[pair.account] && !isTaken(*pair.identity))
                take(pair.account, *pair.identity);
    }

  private:
    bool isTaken(const MailIdentity& identity) const {
        return taken_.count(lowercased(identity.name)) > 0;
    }

    void take(std::size_t account, const MailIdentity& identity) {
        auto address = usableAddress(identity);
        if (address.empty()) return;
        accounts_[account].address = std::move(address);
        accounts_[account].name = identity.name;
        matched_[account] = true;
        taken_.insert(lowercased(identity.name));
    }

    std::vector<MailAccount>& accounts_;
    const std::vector<MailIdentity>& identities_;
    std::vector<bool> matched_;
    std::set<std::string> taken_;
};

}  // namespace

MailboxNames parseMailboxNames(std::string_view listing) {
    MailboxNames names;
    std::set<std::string>* open = nullptr;
    forEachLine(listing, [&](std::string_view line) {
        if (const auto account = openedAccount(line)) {
            open = &names[std::string(*account)];
            open->clear();
        } else if (open) {
            open->insert(lowercased(line));
        }
    });
    return names;
}

std::vector<MailIdentity> parseIdentities(std::string_view listing) {
    std::vector<MailIdentity> identities;
    forEachLine(listing, [&](std::string_view line) {
        if (const auto account = openedAccount(line)) {
            auto& identity = identities.emplace_back();
            const auto bar = account->find('|');
            identity.name = account->substr(0, bar);
            if (bar != std::string_view::npos) identity.address = account->substr(bar + 1);
        } else if (!identities.empty()) {
            identities.back().folders.insert(lowercased(line));
        }
    });
    return identities;
}

void identifyAccounts(std::vector<MailAccount>& accounts,
                      const std::vector<MailIdentity>& identities, const AccountLabels& labels) {
    Matching matching(accounts, identities);
    matching.byLabel(labels);
    matching.byFolders();
}

void mergeMailboxNames(std::vector<MailAccount>& accounts, const MailboxNames& names) {
    for (auto& account : accounts) {
        const auto listed = names.find(account.name);
        if (listed == names.end() || listed->second.empty()) continue;
        auto& folders = account.folders;
        folders.erase(std::remove_if(folders.begin(), folders.end(),
                                     [&](const MailFolder& folder) {
                                         return listed->second.count(lowercased(
                                                    MailFolder::leafName(folder.name))) == 0;
                                     }),
                      folders.end());
        const auto known = leafNames(folders);
        for (const auto& name : listed->second)
            if (known.count(name) == 0)
                folders.push_back({listedFolderId(name), name, 0, MailFolder::roleForName(name)});
        sortFolders(folders);
    }
}

// FNV-1a, 64 bits (draft-eastlake-fnv), folded below zero, where no row id of the index can be.
std::int64_t listedFolderId(std::string_view name) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char byte : name) {
        hash ^= static_cast<unsigned char>(byte);
        hash *= 0x100000001b3;
    }
    return ~static_cast<std::int64_t>(hash % 0x3fffffff);
}

}  // namespace brindlet
