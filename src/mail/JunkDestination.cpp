#include "mail/JunkDestination.h"

#include <algorithm>

#include "mail/GmailAccount.h"

namespace brindlet {
namespace {

bool hasFolder(const MailAccount& account, std::string_view name) {
    return std::any_of(account.folders.begin(), account.folders.end(),
                       [&](const MailFolder& folder) { return folder.name == name; });
}

}  // namespace

std::vector<std::string> junkCandidates(const MailAccount& account) {
    std::vector<const MailFolder*> folders;
    for (const MailFolder& folder : account.folders)
        if (folder.role == MailFolder::Role::junk) folders.push_back(&folder);
    std::stable_sort(folders.begin(), folders.end(), [](const auto* left, const auto* right) {
        return left->count > right->count;
    });
    std::vector<std::string> names;
    for (const auto* folder : folders) names.push_back(folder->name);
    if (std::find(names.begin(), names.end(), ownJunkFolder) == names.end())
        names.emplace_back(ownJunkFolder);
    return names;
}

std::string junkDestination(const MailAccount& account, const std::optional<std::string>& saved) {
    if (saved && !saved->empty() && (*saved == ownJunkFolder || hasFolder(account, *saved)))
        return *saved;
    const auto candidates = junkCandidates(account);
    // There is always one, since ours is among them.
    return *std::find_if_not(candidates.begin(), candidates.end(),
                             [&](const auto& name) { return isSpamFolder(name, account); });
}

}  // namespace brindlet
