#include "sample/SampleMailStore.h"

#include <algorithm>
#include <set>
#include <thread>
#include <utility>

#include "base/Files.h"
#include "base/Task.h"
#include "base/ThreadSafety.h"
#include "sample/IndexWriter.h"
#include "sample/MailSettings.h"
#include "sample/MessageComposer.h"
#include "sample/PlanFacts.h"
#include "sample/SystemAccounts.h"

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

/// One making of a sample home folder, step by step.
class Maker {
  public:
    Maker(const std::string& home, const SampleOptions& options, const SampleProgress& progress)
        : root_(home + '/' + std::string(dataRootInHome)),
          home_(home),
          progress_(progress),
          composer_(texts_),
          plan_(planMail(options, texts_)),
          written_(plan_.messages.size()),
          newest_(options.newest) {}

    SampleOutcome run() && {
        if (!makeDirectories()) return failed("The folders could not be made.");
        if (!writeFiles()) return failed("Not all message files could be written.");
        if (!writeIndex()) return failed("The index could not be written.");
        std::vector<std::int64_t> sizes;
        for (const Written& written : written_) sizes.push_back(written.size);
        SampleFacts facts = factsOfPlan(plan_, mailboxRows_, sizes);
        facts.newest = newest_;
        if (!writeFacts(facts, home_ + "/sample-facts.json"))
            return failed("The facts could not be written.");
        if (!writeSystemAccounts(home_))
            return failed("The system's account database could not be written.");
        if (!writeMailSettings(home_, mailSettings()))
            return failed("The mail program's settings could not be written.");
        return {std::move(facts), ""};
    }

  private:
    static SampleOutcome failed(std::string problem) { return {{}, std::move(problem)}; }

    /// The mail program does not count what lies on this machine alone among its accounts.
    static MailSettings mailSettings() {
        MailSettings settings;
        for (const SampleAccount& sample : sampleAccounts()) {
            if (sample.scheme == "local") continue;
            MailSettings::Account account;
            account.id = sample.id;
            account.name = sample.name;
            account.scheme = sample.scheme;
            account.addresses = {std::string(sample.address)};
            account.gmail = sample.gmail;
            settings.accounts.push_back(std::move(account));
        }
        return settings;
    }

    bool makeDirectories() {
        std::set<std::string> directories{root_ + "/MailData"};
        for (const PlannedFolder& folder : plan_.folders) {
            const std::string& data = folder.dataDirectory;
            directories.insert(root_ + '/' + data + "/Attachments");
            directories.insert(root_ + '/' + data + "/Messages");
        }
        for (const PlannedMessage& message : plan_.messages)
            directories.insert(
                root_ + '/' +
                messageDirectory(plan_.folders[message.folder].dataDirectory, message.rowId));
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
        if (!files::write(root_ + '/' + messagePath(plan_, message), buffer)) return false;
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

    static constexpr std::int64_t danglingRow = 900'000'000;

    const std::string root_;
    const std::string& home_;
    const SampleProgress& progress_;
    const SampleTexts texts_;
    const MessageComposer composer_;
    const MailPlan plan_;
    std::vector<Written> written_;
    std::vector<std::int64_t> mailboxRows_;
    const std::int64_t newest_;
};

}  // namespace

SampleOutcome makeMailStore(const std::string& home, const SampleOptions& options,
                            const SampleProgress& progress) {
    if (files::exists(home + "/Library"))
        return {{}, "There is a Library folder in " + home + " already; nothing was written."};
    return Maker(home, options, progress).run();
}

}  // namespace brindlet::sample
