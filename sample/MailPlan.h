#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/EnumInfo.h"
#include "sample/EmlxWriter.h"
#include "sample/MailLayout.h"
#include "sample/SampleAccounts.h"
#include "sample/SampleTexts.h"

namespace brindlet::sample {

struct SampleOptions {
    std::int64_t messages = 2'000;
    std::uint64_t seed = 1;
    /// The moment before which all mail was sent, in seconds since 1970. A fixed one makes the same
    /// mail every time; with the present one the last days hold mail.
    std::int64_t newest = 1'772'000'000;
};

/// What is out of the ordinary with a message.
enum class Trouble {
    none,
    emptyFile,
    binaryFile,
    fileWithoutHeader,
    missingFile,
    noMessageId,
    duplicateMessageId,
    foldedMessageId,
    noSenderRow,
    noSubjectRow,
};

/// Which texts a message carries.
enum class Shape { plain, html, alternative };

/// Everything about one message but its bytes.
struct PlannedMessage {
    std::int64_t rowId = 0;
    /// Chooses all that is left to choose.
    std::uint64_t key = 0;
    const Family* family = nullptr;
    /// Which of the family's subjects.
    std::size_t subjectLine = 0;
    /// Numbers in MailPlan::folders.
    std::size_t folder = 0;
    std::vector<std::size_t> labels;
    Person sender;
    std::vector<Person> recipients;
    /// Without the prefix.
    std::string subject;
    /// "Re: " or nothing.
    std::string_view subjectPrefix;
    /// Without angle brackets; empty when the message has none.
    std::string messageId;
    std::int64_t dateSent = 0;
    EmlxFlags flags;
    std::int64_t targetSize = 0;
    Shape shape = Shape::plain;
    FileKind kind = FileKind::whole;
    Trouble trouble = Trouble::none;
};

struct PlannedFolder {
    const SampleAccount* account = nullptr;
    const SampleFolder* folder = nullptr;
    /// Below the data root.
    std::string dataDirectory;
    std::string url;
};

/// The whole sample before any of it is written: folders in the order of their index rows, messages
/// in ascending order of row ids. The texts must outlive it.
struct MailPlan {
    std::vector<PlannedFolder> folders;
    std::vector<PlannedMessage> messages;
};

MailPlan planMail(const SampleOptions& options, const SampleTexts& texts);

}  // namespace brindlet::sample

namespace brindlet {

template <>
struct EnumInfo<sample::Trouble> {
    using Trouble = sample::Trouble;
    static constexpr std::array<std::pair<Trouble, std::string_view>, 10> all{{
        {Trouble::none, "none"},
        {Trouble::emptyFile, "emptyFile"},
        {Trouble::binaryFile, "binaryFile"},
        {Trouble::fileWithoutHeader, "fileWithoutHeader"},
        {Trouble::missingFile, "missingFile"},
        {Trouble::noMessageId, "noMessageId"},
        {Trouble::duplicateMessageId, "duplicateMessageId"},
        {Trouble::foldedMessageId, "foldedMessageId"},
        {Trouble::noSenderRow, "noSenderRow"},
        {Trouble::noSubjectRow, "noSubjectRow"},
    }};
};

}  // namespace brindlet
