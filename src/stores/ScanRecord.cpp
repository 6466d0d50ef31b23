#include "stores/ScanRecord.h"

#include "base/Json.h"

namespace brindlet {
namespace {

void writeMoved(const ScanRecord::Moved& moved, JsonWriter& out) {
    out.beginObject();
    out.member("messageID", moved.messageID);
    out.member("sender", moved.sender);
    out.member("subject", moved.subject);
    out.endObject();
}

ScanRecord::Moved readMoved(JsonReader& in) {
    std::optional<std::string> messageID, sender, subject;
    in.object([&](std::string_view key) {
        if (key == "messageID")
            messageID = in.string();
        else if (key == "sender")
            sender = in.string();
        else if (key == "subject")
            subject = in.string();
    });
    if (messageID && sender && subject)
        return {*std::move(messageID), *std::move(sender), *std::move(subject)};
    in.fail();
    return {};
}

std::optional<std::string> optionalString(JsonReader& in) {
    if (in.takeNull()) return std::nullopt;
    return in.string();
}

}  // namespace

std::string ScanRecord::id() const {
    return shortestDecimal(started.unix()) + folder;
}

void ScanRecord::write(JsonWriter& out) const {
    out.beginObject();
    out.member("started", started.sinceReference);
    out.member("account", account);
    out.member("folder", folder);
    out.member("scanned", scanned);
    out.member("junk", junk);
    out.member("protectedCount", protectedCount);
    out.member("movedTo", movedTo);
    out.key("moved");
    out.beginArray();
    for (const Moved& item : moved) writeMoved(item, out);
    out.endArray();
    if (deletedAt) out.member("deletedAt", deletedAt->sinceReference);
    out.endObject();
}

ScanRecord ScanRecord::read(JsonReader& in) {
    ScanRecord record;
    std::optional<double> started;
    std::optional<std::string> account, folder;
    std::optional<std::int64_t> scanned, junk, protectedCount;
    bool hasMoved = false;
    in.object([&](std::string_view key) {
        if (key == "started") {
            started = in.number();
        } else if (key == "account") {
            account = in.string();
        } else if (key == "folder") {
            folder = in.string();
        } else if (key == "scanned") {
            scanned = in.integer();
        } else if (key == "junk") {
            junk = in.integer();
        } else if (key == "protectedCount") {
            protectedCount = in.integer();
        } else if (key == "movedTo") {
            record.movedTo = optionalString(in);
        } else if (key == "moved") {
            hasMoved = true;
            record.moved.clear();
            in.array([&] { record.moved.push_back(readMoved(in)); });
        } else if (key == "deletedAt") {
            if (in.takeNull())
                record.deletedAt.reset();
            else
                record.deletedAt = Date{in.number()};
        }
    });
    if (!started || !account || !folder || !scanned || !junk || !protectedCount || !hasMoved) {
        in.fail();
        return record;
    }
    record.started = {*started};
    record.account = *std::move(account);
    record.folder = *std::move(folder);
    record.scanned = *scanned;
    record.junk = *junk;
    record.protectedCount = *protectedCount;
    return record;
}

void ScanRecord::Saved::write(JsonWriter& out) const {
    out.beginObject();
    out.member("n", n);
    out.member("messageID", messageID);
    out.member("sender", sender);
    out.member("subject", subject);
    out.member("category", category);
    out.member("isJunk", isJunk);
    out.member("vetoed", vetoed);
    out.member("approved", approved);
    out.endObject();
}

ScanRecord::Saved ScanRecord::Saved::read(JsonReader& in) {
    Saved saved;
    std::optional<std::int64_t> n;
    std::optional<std::string> sender, subject, category;
    std::optional<bool> isJunk, vetoed;
    in.object([&](std::string_view key) {
        if (key == "n") {
            n = in.integer();
        } else if (key == "messageID") {
            saved.messageID = optionalString(in);
        } else if (key == "sender") {
            sender = in.string();
        } else if (key == "subject") {
            subject = in.string();
        } else if (key == "category") {
            category = in.string();
        } else if (key == "isJunk") {
            isJunk = in.boolean();
        } else if (key == "vetoed") {
            vetoed = in.boolean();
        } else if (key == "approved") {
            if (in.takeNull())
                saved.approved.reset();
            else
                saved.approved = in.boolean();
        }
    });
    if (!n || !sender || !subject || !category || !isJunk || !vetoed) {
        in.fail();
        return saved;
    }
    saved.n = *n;
    saved.sender = *std::move(sender);
    saved.subject = *std::move(subject);
    saved.category = *std::move(category);
    saved.isJunk = *isJunk;
    saved.vetoed = *vetoed;
    return saved;
}

}  // namespace brindlet
