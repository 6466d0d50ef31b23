#include "sample/PlanFacts.h"

#include <algorithm>

namespace brindlet::sample {
namespace {

std::string loweredAscii(std::string_view text) {
    std::string lowered(text);
    for (char& c : lowered)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return lowered;
}

SampleFacts::Message factsOf(const MailPlan& plan, const PlannedMessage& message,
                             std::int64_t mailbox, std::int64_t size) {
    SampleFacts::Message facts;
    facts.id = message.rowId;
    facts.account = plan.folders[message.folder].account->id;
    facts.mailbox = mailbox;
    facts.category = message.family->category;
    if (message.trouble != Trouble::noSenderRow) facts.sender = message.sender.shown();
    facts.subject = message.subject;
    facts.dateSent = message.dateSent;
    facts.fileSize = size;
    facts.trouble = rawValue(message.trouble);
    if (message.trouble == Trouble::missingFile) return facts;
    facts.path = std::string(dataRootInHome) + '/' + messagePath(plan, message);
    if (!message.messageId.empty()) facts.messageId = message.messageId;
    facts.readable = message.trouble != Trouble::emptyFile &&
                     message.trouble != Trouble::binaryFile &&
                     message.trouble != Trouble::fileWithoutHeader;
    return facts;
}

/// Only the word in the URL tells a mailbox of sent mail.
void addCorrespondents(const MailPlan& plan, const PlannedMessage& message, SampleFacts& facts) {
    if (plan.folders[message.folder].url.find("Sent") == std::string::npos) return;
    for (const Person& person : message.recipients)
        if (person.address.find('@') != std::string::npos)
            facts.correspondents.insert(loweredAscii(person.address));
}

}  // namespace

std::string messagePath(const MailPlan& plan, const PlannedMessage& message) {
    return messageDirectory(plan.folders[message.folder].dataDirectory, message.rowId) + '/' +
           messageFileName(message.rowId, message.kind);
}

SampleFacts factsOfPlan(const MailPlan& plan, const std::vector<std::int64_t>& mailboxRows,
                        const std::vector<std::int64_t>& sizes) {
    SampleFacts facts;
    std::vector<std::vector<const PlannedMessage*>> filed(plan.folders.size());
    std::vector<std::vector<const PlannedMessage*>> labelled(plan.folders.size());
    for (std::size_t i = 0; i < plan.messages.size(); ++i) {
        const PlannedMessage& message = plan.messages[i];
        facts.messages.push_back(factsOf(plan, message, mailboxRows[message.folder], sizes[i]));
        addCorrespondents(plan, message, facts);
        filed[message.folder].push_back(&message);
        for (const std::size_t label : message.labels) labelled[label].push_back(&message);
    }
    for (std::size_t i = 0; i < plan.folders.size(); ++i) {
        const PlannedFolder& planned = plan.folders[i];
        if (facts.accounts.empty() || facts.accounts.back().id != planned.account->id)
            facts.accounts.push_back({std::string(planned.account->id),
                                      std::string(planned.account->name),
                                      std::string(planned.account->address),
                                      {}});
        auto& listed = filed[i].empty() ? labelled[i] : filed[i];
        std::stable_sort(listed.begin(), listed.end(), [](const auto* left, const auto* right) {
            return left->dateSent > right->dateSent;
        });
        SampleFacts::Folder folder;
        folder.id = mailboxRows[i];
        folder.name = planned.folder->name;
        folder.url = planned.url;
        folder.role = planned.folder->role;
        folder.count = static_cast<std::int64_t>(std::max(filed[i].size(), labelled[i].size()));
        for (const PlannedMessage* message : listed) folder.messages.push_back(message->rowId);
        facts.accounts.back().folders.push_back(std::move(folder));
    }
    for (const std::string_view url : foreignMailboxUrls())
        facts.foreignMailboxes.emplace_back(url);
    return facts;
}

}  // namespace brindlet::sample
