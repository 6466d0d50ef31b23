#include "sample/SampleMailStore.h"

#include <algorithm>
#include <set>
#include <thread>
#include <utility>

#include "base/Files.h"
#include "base/Task.h"
#include "base/ThreadSafety.h"
#include "sample/IndexWriter.h"
#include "sample/MessageComposer.h"
#include "sample/Random.h"

namespace brindlet::sample {
namespace {

constexpr const char* infoPlist =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n<dict/>\n</plist>\n";

/// What was learned of a message while its file was written.
struct Written {
    std::int64_t size = 0;
    std::string attachment;
    std::string summary;
};

std::string loweredAscii(std::string_view text) {
    std::string lowered(text);
    for (char& c : lowered)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return lowered;
}

/// One making of a sample home folder, step by step.
class Maker {
  public:
    Maker(const std::string& home, const SampleOptions& options, const SampleProgress& progress)
        : root_(home + '/' + std::string(dataRootInHome)),
          home_(home),
          progress_(progress),
          composer_(texts_),
          plan_(planMail(options, texts_)),
          written_(plan_.messages.size()) {
        facts_.newest = options.newest;
    }

    SampleOutcome run() && {
        if (!makeDirectories()) return failed("The folders could not be made.");
        if (!writeFiles()) return failed("Not all message files could be written.");
        if (!writeIndex()) return failed("The index could not be written.");
        gatherFacts();
        if (!writeFacts(facts_, home_ + "/sample-facts.json"))
            return failed("The facts could not be written.");
        return {std::move(facts_), ""};
    }

  private:
    static SampleOutcome failed(std::string problem) { return {{}, std::move(problem)}; }

    std::string directoryOf(const PlannedMessage& message) const {
        return messageDirectory(plan_.folders[message.folder].dataDirectory, message.rowId);
    }

    bool makeDirectories() {
        std::set<std::string> directories{root_ + "/MailData"};
        for (const PlannedFolder& folder : plan_.folders) {
            const std::string& data = folder.dataDirectory;
            directories.insert(root_ + '/' + data + "/Attachments");
            directories.insert(root_ + '/' + data + "/Messages");
        }
        for (const PlannedMessage& message : plan_.messages)
            directories.insert(root_ + '/' + directoryOf(message));
        for (const std::string& directory : directories)
            if (!files::createDirectories(directory)) return false;
        for (const PlannedFolder& folder : plan_.folders) {
            const std::string box =
                mailboxDirectory(folder.account->id, folder.folder->name) + "/Info.plist";
            if (!files::write(root_ + '/' + box, infoPlist)) return false;
        }
        return true;
    }

    bool writeFile(const PlannedMessage& message, std::string& buffer, Written& written) const {
        Attachment attachment = composer_.compose(message, buffer);
        written.size = static_cast<std::int64_t>(buffer.size());
        written.summary = composer_.summary(message);
        if (message.trouble == Trouble::missingFile) return true;
        const std::string path =
            root_ + '/' + directoryOf(message) + '/' + messageFileName(message.rowId, message.kind);
        if (!files::write(path, buffer)) return false;
        written.attachment = std::move(attachment.name);
        if (attachment.apart.empty()) return true;
        const std::string place =
            root_ + '/' +
            attachmentDirectory(plan_.folders[message.folder].dataDirectory, message.rowId) + "/2";
        return files::createDirectories(place) &&
               files::write(place + '/' + written.attachment, attachment.apart);
    }

    bool writeFiles() {
        constexpr std::size_t often = 500;
        const int threads =
            static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1u, 8u));
        WorkerCrew crew(threads);
        std::vector<std::string> buffers(static_cast<std::size_t>(threads));
        Locked<std::pair<std::size_t, bool>> state({0, true});
        crew.forEach(plan_.messages.size(), [&](int worker, std::size_t i) {
            const bool good = writeFile(plan_.messages[i],
                                        buffers[static_cast<std::size_t>(worker)], written_[i]);
            state.with([&](auto& doneAndGood) {
                doneAndGood.second = doneAndGood.second && good;
                ++doneAndGood.first;
                if (progress_ && doneAndGood.first % often == 0)
                    progress_(doneAndGood.first, plan_.messages.size());
            });
        });
        return state.get().second;
    }

    bool writeIndex() {
        IndexWriter index(root_ + '/' + std::string(indexInDataRoot));
        index.begin();
        for (const PlannedFolder& folder : plan_.folders)
            mailboxRows_.push_back(index.addMailbox(folder.url));
        for (const std::string_view url : foreignMailboxUrls()) {
            index.addMailbox(url);
            facts_.foreignMailboxes.emplace_back(url);
        }
        // The newest rows stay in the -wal file.
        const std::size_t all = plan_.messages.size();
        const std::size_t checkpointed = all - (all + 49) / 50;
        for (std::size_t i = 0; i < checkpointed; ++i) addRows(index, i);
        index.commit();
        index.checkpointForTheLastTime();
        index.begin();
        for (std::size_t i = checkpointed; i < all; ++i) addRows(index, i);
        index.updateMailboxCounts();
        index.commit();
        return index.ok();
    }

    void addRows(IndexWriter& index, std::size_t i) {
        const PlannedMessage& message = plan_.messages[i];
        const Written& written = written_[i];
        IndexedMessage row;
        row.rowId = message.rowId;
        row.mailbox = mailboxRows_[message.folder];
        row.sender = index.address(message.sender.address, message.sender.name);
        if (message.trouble == Trouble::noSenderRow)
            // Some rows have none, some point to one that is gone.
            row.sender = message.key % 2 == 0 ? 0 : danglingRow;
        if (message.trouble != Trouble::noSubjectRow) row.subject = index.subject(message.subject);
        row.subjectPrefix = message.subjectPrefix;
        row.summary = written.summary;
        const std::string header = message.messageId.empty() ? "" : '<' + message.messageId + '>';
        row.messageIdHeader = header;
        row.dateSent = message.dateSent;
        row.dateReceived = message.flags.dateReceived;
        row.remoteId = message.flags.remoteId;
        row.flags = flagBits(message.flags);
        row.size = written.size;
        row.conversation = message.flags.conversation;
        row.read = message.flags.read;
        row.flagged = message.flags.flagged;
        row.fromList = !message.family->fromContact();
        index.addMessage(row);
        std::int64_t position = 0;
        for (const Person& person : message.recipients)
            index.addRecipient(message.rowId, index.address(person.address, person.name),
                               position++);
        for (const std::size_t label : message.labels)
            index.addLabel(message.rowId, mailboxRows_[label]);
        // Spam and Trash carry label rows as well, which nobody lists.
        const SampleFolder& folder = *plan_.folders[message.folder].folder;
        if (folder.name == "[Gmail]/Spam" || folder.name == "[Gmail]/Trash")
            index.addLabel(message.rowId, mailboxRows_[message.folder]);
        if (!written.attachment.empty())
            index.addAttachment(message.rowId, "2", written.attachment);
    }

    void gatherFacts() {
        std::vector<std::vector<std::size_t>> filed(plan_.folders.size());
        std::vector<std::vector<std::size_t>> labelled(plan_.folders.size());
        for (std::size_t i = 0; i < plan_.messages.size(); ++i) {
            const PlannedMessage& message = plan_.messages[i];
            filed[message.folder].push_back(i);
            for (const std::size_t label : message.labels) labelled[label].push_back(i);
            facts_.messages.push_back(factsOf(message, written_[i].size));
            if (plan_.folders[message.folder].url.find("Sent") != std::string::npos)
                for (const Person& person : message.recipients)
                    if (person.address.find('@') != std::string::npos)
                        facts_.correspondents.insert(loweredAscii(person.address));
        }
        for (std::size_t folder = 0; folder < plan_.folders.size(); ++folder) {
            const PlannedFolder& planned = plan_.folders[folder];
            if (facts_.accounts.empty() || facts_.accounts.back().id != planned.account->id)
                facts_.accounts.push_back({std::string(planned.account->id),
                                           std::string(planned.account->name),
                                           std::string(planned.account->address),
                                           {}});
            auto& listed = filed[folder].empty() ? labelled[folder] : filed[folder];
            std::stable_sort(listed.begin(), listed.end(), [&](std::size_t a, std::size_t b) {
                return plan_.messages[a].dateSent > plan_.messages[b].dateSent;
            });
            SampleFacts::Folder facts;
            facts.id = mailboxRows_[folder];
            facts.name = planned.folder->name;
            facts.url = planned.url;
            facts.role = planned.folder->role;
            facts.count =
                static_cast<std::int64_t>(std::max(filed[folder].size(), labelled[folder].size()));
            for (const std::size_t i : listed) facts.messages.push_back(plan_.messages[i].rowId);
            facts_.accounts.back().folders.push_back(std::move(facts));
        }
    }

    SampleFacts::Message factsOf(const PlannedMessage& message, std::int64_t size) const {
        SampleFacts::Message facts;
        const PlannedFolder& folder = plan_.folders[message.folder];
        facts.id = message.rowId;
        facts.account = folder.account->id;
        facts.mailbox = mailboxRows_[message.folder];
        const bool fileStands = message.trouble != Trouble::missingFile;
        if (!message.messageId.empty() && fileStands) facts.messageId = message.messageId;
        facts.category = message.family->category;
        if (message.trouble != Trouble::noSenderRow) facts.sender = message.sender.shown();
        facts.subject = message.subject;
        facts.dateSent = message.dateSent;
        if (fileStands)
            facts.path = std::string(dataRootInHome) + '/' + directoryOf(message) + '/' +
                         messageFileName(message.rowId, message.kind);
        facts.fileSize = size;
        facts.readable = fileStands && message.trouble != Trouble::emptyFile &&
                         message.trouble != Trouble::binaryFile &&
                         message.trouble != Trouble::fileWithoutHeader;
        facts.trouble = rawValue(message.trouble);
        return facts;
    }

    static constexpr std::int64_t danglingRow = 900'000'000;

    const std::string root_;
    const std::string& home_;
    const SampleProgress& progress_;
    const SampleTexts texts_;
    const MessageComposer composer_;
    const MailPlan plan_;
    std::vector<Written> written_;
    std::vector<std::int64_t> mailboxRows_;
    SampleFacts facts_;
};

}  // namespace

SampleOutcome makeMailStore(const std::string& home, const SampleOptions& options,
                            const SampleProgress& progress) {
    if (files::exists(home + "/Library"))
        return {{}, "There is a Library folder in " + home + " already; nothing was written."};
    return Maker(home, options, progress).run();
}

}  // namespace brindlet::sample
