#include "models/server/ServedScan.h"

namespace brindlet {

ServedScan::ServedScan(LanguageModel& model, int messages)
    : world(doubles::World::lasting()), home_(world.directories.home()) {
    world.defaults.setString("scan.reach", "everything");
    world.defaults.setInteger("scan.limit", 0);
    world.defaults.setBoolean("skipSeen", false);
    inbox_.id = home_.addMailbox("INBOX");
    inbox_.name = "INBOX";
    inbox_.role = MailFolder::Role::inbox;
    account_.id = doubles::MailHome::account;
    account_.folders = {inbox_};
    for (int i = 0; i < messages; ++i) {
        doubles::MailHome::Message message;
        const auto number = std::to_string(i);
        message.mailbox = inbox_.id;
        message.sender = "s" + number + "@many.example";
        message.subject = "Subject " + number;
        message.messageID = "m" + number + "@example";
        message.body = "Body " + number;
        home_.addMessage(message);
    }
    state = AppState::make({world.clock, world.directories, world.mainQueue, world.defaults, model,
                            world.power, world.desktop, world.locale, world.processes,
                            world.runningApps, world.keys, world.tls, world.scriptHost},
                           2);
}

ServedScan::~ServedScan() {
    world.mainQueue.end();
    if (state->scanTask()) {
        state->scanTask()->cancel();
        state->scanTask()->wait();
    }
    state->drainWrites();
    world.retire();
}

void ServedScan::start() {
    state->startScan(account_, inbox_);
}

void ServedScan::finish() {
    while (!world.mainQueue.pumpUntil([this] { return state->scanTask()->finished(); })) {
    }
    world.mainQueue.pump();
}

}  // namespace brindlet
