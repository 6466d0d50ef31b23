#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "sample/Templates.h"

/// The accounts and folders of the sample mail: always the same ones, whatever size and seed.
namespace brindlet::sample {

/// What kind of mail a folder collects.
enum class Mix { inbox, junk, archive, sent, drafts, trash, project, work, mailingList };

/// How a folder holds its messages: as rows of its own, through the labels table alone, or not at
/// all.
enum class Storage { filed, labelled, none };

struct SampleFolder {
    std::string_view name;
    /// The raw word of the role that the name implies.
    std::string_view role;
    /// Of a thousand messages of the whole sample, those filed here.
    int permille;
    Mix mix;
    Storage storage = Storage::filed;
    /// The path in the URL where it is not simply the name, percent-encoded.
    std::string_view urlPath = {};
};

struct SampleAccount {
    /// What the mail program calls it.
    std::string_view name;
    std::string_view scheme;
    std::string_view id;
    /// The name and address under which its owner writes.
    std::string_view ownerName;
    std::string_view address;
    std::span<const SampleFolder> folders;
    /// Its folders are labels.
    bool gmail = false;

    Person owner() const { return {std::string(ownerName), std::string(address)}; }
};

std::span<const SampleAccount> sampleAccounts();

/// Mailbox URLs of other forms, which belong to no account that is served.
std::span<const std::string_view> foreignMailboxUrls();

}  // namespace brindlet::sample
