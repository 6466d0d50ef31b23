#include "sample/MessageMover.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "base/Files.h"
#include "base/Json.h"
#include "sample/MailLayout.h"

namespace brindlet::sample {
namespace {

/// Held for the time of one move. The system lets go of it when its holder is killed.
class Turn {
  public:
    explicit Turn(const std::string& path)
        : descriptor_(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
        while (descriptor_ >= 0 && ::flock(descriptor_, LOCK_EX) != 0 && errno == EINTR) {
        }
    }
    ~Turn() {
        if (descriptor_ >= 0) ::close(descriptor_);
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

  private:
    int descriptor_;
};

std::string folderOf(const std::string& path) {
    return path.substr(0, path.rfind('/'));
}

}  // namespace

MessageMover::MessageMover(const std::string& home, MailIndex& index,
                           std::function<void(MoveStep)> hook)
    : lock_(home + "/mail-program.lock"),
      note_(home + "/mail-program.move"),
      index_(index),
      hook_(std::move(hook)) {}

void MessageMover::settle() {
    const Turn turn(lock_);
    settleLocked();
}

void MessageMover::settleLocked() {
    auto text = files::read(note_);
    if (!text) return;
    Intention intention;
    JsonReader json(std::move(*text));
    json.object([&](std::string_view key) {
        if (key == "newRow")
            intention.newRow = json.integer();
        else if (key == "from")
            intention.from = json.string();
        else if (key == "to")
            intention.to = json.string();
        else if (key == "attachmentsFrom")
            intention.attachmentsFrom = json.string();
        else if (key == "attachmentsTo")
            intention.attachmentsTo = json.string();
    });
    if (json.finish()) {
        if (index_.filedIn(intention.newRow) != 0)
            finish(intention);
        else if (!intention.to.empty())
            files::remove(intention.to);
    }
    files::remove(note_);
}

void MessageMover::note(const Intention& intention) const {
    JsonWriter json;
    json.beginObject();
    json.member("newRow", intention.newRow);
    json.member("from", intention.from);
    json.member("to", intention.to);
    json.member("attachmentsFrom", intention.attachmentsFrom);
    json.member("attachmentsTo", intention.attachmentsTo);
    json.endObject();
    files::replace(note_, std::move(json).text());
}

void MessageMover::finish(const Intention& intention) {
    // A directory cannot stand at two places, so the attachments come over once the index is sure.
    if (files::isDirectory(intention.attachmentsFrom) &&
        files::createDirectories(folderOf(intention.attachmentsTo)))
        std::rename(intention.attachmentsFrom.c_str(), intention.attachmentsTo.c_str());
    if (!intention.from.empty()) files::remove(intention.from);
}

bool MessageMover::makeDirectory(const std::string& path) {
    if (path == made_) return true;
    if (!files::createDirectories(path)) return false;
    made_ = path;
    return true;
}

MessageMover::Intention MessageMover::intended(std::int64_t message, const Place& from,
                                               const Place& to) {
    Intention intention;
    intention.newRow = index_.nextRow();
    for (const FileKind kind : {FileKind::whole, FileKind::partial}) {
        const std::string path =
            messageDirectory(from.data, message) + '/' + messageFileName(message, kind);
        if (!files::exists(path)) continue;
        intention.from = path;
        intention.to = messageDirectory(to.data, intention.newRow) + '/' +
                       messageFileName(intention.newRow, kind);
    }
    intention.attachmentsFrom = attachmentDirectory(from.data, message);
    intention.attachmentsTo = attachmentDirectory(to.data, intention.newRow);
    return intention;
}

std::int64_t MessageMover::move(std::int64_t message, const Place& from, const Place& to,
                                MailIndex::Labels labels) {
    const Turn turn(lock_);
    settleLocked();
    if (!index_.begin()) return 0;
    const Intention intention = intended(message, from, to);
    // What is in the way is not ours to remove, as an undoing would.
    if (!intention.to.empty() && files::exists(intention.to)) {
        index_.rollBack();
        return 0;
    }
    note(intention);
    reached(MoveStep::noted);
    const bool linked =
        intention.to.empty() || (makeDirectory(folderOf(intention.to)) &&
                                 ::link(intention.from.c_str(), intention.to.c_str()) == 0);
    reached(MoveStep::linked);
    if (!linked || !index_.refile(message, intention.newRow, to.mailbox, labels) ||
        !index_.commit()) {
        index_.rollBack();
        settleLocked();
        return 0;
    }
    reached(MoveStep::committed);
    finish(intention);
    reached(MoveStep::removed);
    files::remove(note_);
    return intention.newRow;
}

}  // namespace brindlet::sample
