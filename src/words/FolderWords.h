#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "base/Date.h"
#include "mail/MailFolder.h"
#include "words/Mark.h"

namespace brindlet {

class AppState;

/// One mailbox of the picker.
struct FolderWords {
    std::int64_t id = 0;
    std::string name;
    /// Beside the name: where to begin, where to take care, and which folders are junk folders.
    Mark tag;
    std::string note;
    /// When it was last sorted.
    std::string status;
    /// What there is to do in it.
    Mark statusTag;
    bool selectable = false;
    bool selected = false;

    friend bool operator==(const FolderWords&, const FolderWords&) = default;
};

/// What the folders of that role hold.
std::string_view folderNote(MailFolder::Role role);

/// The row of one folder of the selected account. `lastScans` is the history's, taken once for all
/// rows.
FolderWords folderWords(const AppState& state, const MailFolder& folder,
                        const std::map<std::string, Date>& lastScans);

}  // namespace brindlet
