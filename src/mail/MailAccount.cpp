#include "mail/MailAccount.h"

#include <algorithm>

#include "base/Graphemes.h"

namespace brindlet {
namespace {

std::int64_t messageCount(const MailAccount& account) {
    std::int64_t sum = 0;
    for (const MailFolder& folder : account.folders) sum += folder.count;
    return sum;
}

}  // namespace

std::string MailAccount::displayLabel() const {
    if (!address.empty()) return address;
    if (!name.empty()) return name;
    return std::string(graphemePrefix(id, 8));
}

void sortAccounts(std::vector<MailAccount>& accounts) {
    std::stable_sort(accounts.begin(), accounts.end(), [](const auto& left, const auto& right) {
        return messageCount(left) > messageCount(right);
    });
}

}  // namespace brindlet
