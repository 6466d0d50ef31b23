#include "session/AccountMatch.h"

#include <algorithm>

#include "base/Text.h"

namespace brindlet {
namespace {

template <class List, class Test>
auto firstOf(const List& list, Test test) -> decltype(list.data()) {
    const auto found = std::find_if(list.begin(), list.end(), test);
    return found == list.end() ? nullptr : &*found;
}

}  // namespace

const MailAccount* accountForLabel(const std::vector<MailAccount>& accounts,
                                   const std::string& label) {
    if (const auto* exact = firstOf(
            accounts, [&](const MailAccount& account) { return account.displayLabel() == label; }))
        return exact;
    const auto lower = lowercased(label);
    return firstOf(accounts, [&](const MailAccount& account) {
        if (account.address.empty()) return false;
        const auto address = lowercased(account.address);
        return lower.find(address) != std::string::npos || address.find(lower) != std::string::npos;
    });
}

const MailFolder* folderAsBefore(const MailAccount& account, const MailFolder& old) {
    if (const auto* same =
            firstOf(account.folders, [&](const MailFolder& folder) { return folder.id == old.id; }))
        return same;
    const auto leaf = lowercased(MailFolder::leafName(old.name));
    return firstOf(account.folders, [&](const MailFolder& folder) {
        return lowercased(MailFolder::leafName(folder.name)) == leaf;
    });
}

}  // namespace brindlet
