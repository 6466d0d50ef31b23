#include "stores/Interrupted.h"

#include <utility>

#include "base/Files.h"
#include "base/Json.h"
#include "stores/StoreFile.h"

namespace brindlet {

Interrupted::Interrupted(Services services) : path_(storeFile(services, "pending-move.json")) {
    load();
}

void Interrupted::load() {
    auto text = files::read(path_);
    if (!text) return;
    JsonReader in(*std::move(text));
    auto move = PendingMove::read(in);
    if (!in.finish()) return;
    if (move.remaining.empty())
        files::remove(path_);
    else
        pending.set(std::move(move));
}

void Interrupted::save() const {
    if (!*pending) {
        files::remove(path_);
        return;
    }
    JsonWriter out;
    (*pending)->write(out);
    files::write(path_, std::move(out).text());
}

void Interrupted::begin(PendingMove move) {
    pending.set(std::move(move));
    save();
}

void Interrupted::markDone(const std::set<std::string>& messageIDs) {
    if (!*pending) return;
    pending.mutate([&](auto& move) {
        const auto removed = std::erase_if(
            move->remaining, [&](const auto& item) { return messageIDs.contains(item.messageID); });
        move->done = saturatingSum(move->done, static_cast<std::int64_t>(removed));
    });
    save();
}

void Interrupted::clear() {
    pending.set(std::nullopt);
    save();
}

}  // namespace brindlet
