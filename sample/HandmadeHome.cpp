#include "sample/HandmadeHome.h"

#include <algorithm>

#include "base/Files.h"
#include "sample/EmlxWriter.h"

namespace brindlet::sample {
namespace {

constexpr std::int64_t firstDate = 1'699'000'000;

}  // namespace

HandmadeHome::HandmadeHome(std::string home) : home_(std::move(home)) {
    good_ = files::createDirectories(dataRoot() + "/MailData");
    index_ = std::make_unique<IndexWriter>(indexPath());
    index_->begin();
}

std::string HandmadeHome::dataRoot() const {
    return home_ + '/' + std::string(dataRootInHome);
}

std::string HandmadeHome::indexPath() const {
    return dataRoot() + '/' + std::string(indexInDataRoot);
}

std::size_t HandmadeHome::addAccount(const std::string& name, const std::string& address) {
    MailSettings::Account account;
    account.id = identifierFor(std::to_string(settings.accounts.size()) + name);
    account.name = name;
    if (!address.empty()) account.addresses.push_back(address);
    settings.accounts.push_back(std::move(account));
    return settings.accounts.size() - 1;
}

std::int64_t HandmadeHome::addMailbox(std::size_t account, const std::string& path) {
    const auto& owner = settings.accounts[account];
    Mailbox mailbox{index_->addMailbox(mailboxUrl(owner.scheme, owner.id, path)),
                    dataRoot() + '/' + mailboxDataDirectory(owner.id, path)};
    good_ = files::createDirectories(mailbox.data + "/Messages") && good_;
    mailboxes_.push_back(mailbox);
    return mailbox.row;
}

std::int64_t HandmadeHome::addMessage(const Message& message) {
    const auto mailbox =
        std::find_if(mailboxes_.begin(), mailboxes_.end(),
                     [&](const Mailbox& each) { return each.row == message.mailbox; });
    if (mailbox == mailboxes_.end()) {
        good_ = false;
        return 0;
    }
    const std::int64_t row = ++lastRow_;
    const std::int64_t date = message.dateSent != 0 ? message.dateSent : firstDate + row;
    const std::string header = message.messageId.empty() ? "" : '<' + message.messageId + '>';

    EmlxFlags flags;
    flags.dateReceived = date;
    flags.remoteId = row;
    flags.read = message.read;
    std::string file;
    beginEmlx(file);
    file += "From: " + message.sender + "\nSubject: " + message.subject + '\n';
    if (!header.empty()) file += "Message-ID: " + header + '\n';
    file += '\n' + message.body + '\n';
    finishEmlx(file, flags);
    const std::string directory = messageDirectory(mailbox->data, row);
    if (message.withFile)
        good_ = files::createDirectories(directory) &&
                files::write(directory + '/' + messageFileName(row, message.kind), file) && good_;
    if (!message.attachment.empty()) {
        const std::string place = attachmentDirectory(mailbox->data, row) + "/2";
        good_ = files::createDirectories(place) &&
                files::write(place + '/' + message.attachment, "attached") && good_;
        index_->addAttachment(row, "2", message.attachment);
    }

    IndexedMessage indexed;
    indexed.rowId = row;
    indexed.mailbox = message.mailbox;
    indexed.sender = index_->address(message.sender, "");
    indexed.subject = index_->subject(message.subject);
    indexed.messageIdHeader = header;
    indexed.dateSent = date;
    indexed.dateReceived = date;
    indexed.remoteId = row;
    indexed.flags = flagBits(flags);
    indexed.size = static_cast<std::int64_t>(file.size());
    indexed.read = message.read;
    index_->addMessage(indexed);
    for (const std::int64_t label : message.labels) index_->addLabel(row, label);
    return row;
}

bool HandmadeHome::finish() {
    index_->updateMailboxCounts();
    index_->commit();
    good_ = index_->ok() && good_;
    index_.reset();
    return writeMailSettings(home_, settings) && good_;
}

}  // namespace brindlet::sample
