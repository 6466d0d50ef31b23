#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Where the mail program keeps things below its data root, "Library/Mail/V10" in a home folder.
/// Pure functions on names; nothing here touches the disc.
namespace brindlet::sample {

/// "Library/Mail/V10", to be put after the home folder.
extern const std::string_view dataRootInHome;
/// "MailData/Envelope Index", to be put after the data root.
extern const std::string_view indexInDataRoot;

/// Everything but letters, digits and "-._~" as %XX, "/" too unless it is kept.
enum class Slash { keep, encode };
std::string percentEncoded(std::string_view text, Slash slash);

/// The URL under which the index knows a mailbox: "imap://<account>/%5BGmail%5D/All%20Mail".
std::string mailboxUrl(std::string_view scheme, std::string_view account, std::string_view name);

/// An identifier of 36 characters that depends on the name alone.
std::string identifierFor(std::string_view name);

/// The mailbox's own folder below the data root; each level of the name nests one ".mbox":
/// "<account>/Projects.mbox/Harbour House.mbox".
std::string mailboxDirectory(std::string_view account, std::string_view name);
/// The folder inside it that holds its messages: "<mailboxDirectory>/<identifier>/Data".
std::string mailboxDataDirectory(std::string_view account, std::string_view name);

/// The digits of row id / 1000 from the last to the first, each with a slash behind it: "3/2/1/"
/// for 123,456. Empty below 1000.
std::string digitFolders(std::int64_t rowId);

/// "<data directory>/3/2/1/Messages/123456.emlx", or ".partial.emlx" for a message whose
/// attachments lie apart.
enum class FileKind { whole, partial };
std::string messageDirectory(std::string_view dataDirectory, std::int64_t rowId);
std::string messageFileName(std::int64_t rowId, FileKind kind);
/// The folder of one message's attachments, beside Messages.
std::string attachmentDirectory(std::string_view dataDirectory, std::int64_t rowId);

}  // namespace brindlet::sample
