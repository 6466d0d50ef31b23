#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/EnumInfo.h"

namespace brindlet {

/// One mailbox of an account: an immutable value, copied freely between threads.
struct MailFolder {
    enum class Role { inbox, junk, archive, sent, drafts, trash, custom };

    /// The mailbox's row id in the index; negative for a folder that only the mail program's own
    /// listing knows.
    std::int64_t id = 0;
    /// The path inside the account, percent escapes decoded, "/" between levels.
    std::string name;
    /// Messages: the larger of the rows filed in it and the rows labelled with it.
    std::int64_t count = 0;
    Role role = Role::custom;

    friend bool operator==(const MailFolder&, const MailFolder&) = default;

    /// The role that a name implies. Only the last path component counts, compared whole: a parent
    /// does not lend its role to a child.
    static Role roleForName(std::string_view name);
    /// The last non-empty "/"-separated component, letter case kept; empty when there is none.
    static std::string leafName(std::string_view name);
};

template <>
struct EnumInfo<MailFolder::Role> {
    static constexpr std::array<std::pair<MailFolder::Role, std::string_view>, 7> all{{
        {MailFolder::Role::inbox, "inbox"},
        {MailFolder::Role::junk, "junk"},
        {MailFolder::Role::archive, "archive"},
        {MailFolder::Role::sent, "sent"},
        {MailFolder::Role::drafts, "drafts"},
        {MailFolder::Role::trash, "trash"},
        {MailFolder::Role::custom, "custom"},
    }};
};

/// By role (inbox, junk, custom, archive, sent, drafts, trash), then by count, fullest first.
/// Equals keep their order.
void sortFolders(std::vector<MailFolder>& folders);

}  // namespace brindlet
