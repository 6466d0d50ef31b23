#include "mail/MailFolder.h"

#include <algorithm>

#include "base/Text.h"

namespace brindlet {
namespace {

using Role = MailFolder::Role;

/// The leaves that imply a role, lower-cased. Kept short on purpose: names in other languages and
/// rarer spellings stay custom.
constexpr std::pair<std::string_view, Role> roleLeaves[] = {
    {"inbox", Role::inbox},         {"junk", Role::junk},
    {"junk email", Role::junk},     {"spam", Role::junk},
    {"bulk", Role::junk},           {"bulk mail", Role::junk},
    {"all mail", Role::archive},    {"archive", Role::archive},
    {"archives", Role::archive},    {"sent", Role::sent},
    {"sent mail", Role::sent},      {"sent items", Role::sent},
    {"sent messages", Role::sent},  {"drafts", Role::drafts},
    {"draft", Role::drafts},        {"trash", Role::trash},
    {"deleted items", Role::trash}, {"deleted messages", Role::trash},
    {"bin", Role::trash},
};

/// A person's own folders stand between junk and archive.
int rank(Role role) {
    switch (role) {
        case Role::inbox:
            return 0;
        case Role::junk:
            return 1;
        case Role::custom:
            return 2;
        case Role::archive:
            return 3;
        case Role::sent:
            return 4;
        case Role::drafts:
            return 5;
        case Role::trash:
            return 6;
    }
    return 2;
}

}  // namespace

std::string MailFolder::leafName(std::string_view name) {
    const auto last = name.find_last_not_of('/');
    if (last == std::string_view::npos) return {};
    name = name.substr(0, last + 1);
    const auto slash = name.rfind('/');
    return std::string(slash == std::string_view::npos ? name : name.substr(slash + 1));
}

MailFolder::Role MailFolder::roleForName(std::string_view name) {
    const std::string leaf = leafName(lowercased(name));
    for (const auto& [text, role] : roleLeaves)
        if (text == leaf) return role;
    return Role::custom;
}

void sortFolders(std::vector<MailFolder>& folders) {
    std::stable_sort(folders.begin(), folders.end(), [](const auto& left, const auto& right) {
        const int leftRank = rank(left.role);
        const int rightRank = rank(right.role);
        return leftRank != rightRank ? leftRank < rightRank : left.count > right.count;
    });
}

}  // namespace brindlet
