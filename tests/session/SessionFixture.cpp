#include "session/SessionFixture.h"

namespace brindlet {

SessionTest::SessionTest()
    : world(doubles::World::lasting()), home(world.directories.home()), mailbox(home.addMailbox("INBOX")) {
    world.defaults.setString("scan.reach", "everything");
    world.defaults.setInteger("scan.limit", 0);
}

SessionTest::~SessionTest() {
    world.model.release();
    world.mainQueue.end();
    if (state && state->scanTask()) {
        state->scanTask()->cancel();
        state->scanTask()->wait();
    }
    if (state) state->drainWrites();
    world.retire();
}

AppState& SessionTest::open() {
    state = AppState::make(world.services(), 2);
    return *state;
}

std::int64_t SessionTest::add(const std::string& sender, const std::string& subject,
                              const std::string& body) {
    ++added_;
    doubles::MailHome::Message message;
    message.mailbox = mailbox;
    message.sender = sender;
    message.subject = subject;
    message.dateSent += added_;
    message.messageID = "m" + std::to_string(added_) + "@example";
    message.body = body;
    return home.addMessage(message);
}

std::int64_t SessionTest::addUnreadable(const std::string& sender, const std::string& subject) {
    ++added_;
    doubles::MailHome::Message message;
    message.mailbox = mailbox;
    message.sender = sender;
    message.subject = subject;
    message.dateSent += added_;
    message.withFile = false;
    return home.addMessage(message);
}

void SessionTest::addMany(int count, int from) {
    for (int i = from; i < from + count; ++i)
        add("s" + std::to_string(i) + "@many.example", "Subject " + std::to_string(i));
}

MailAccount SessionTest::account() const {
    MailAccount account;
    account.id = doubles::MailHome::account;
    account.folders = {inbox()};
    return account;
}

MailFolder SessionTest::inbox() const {
    MailFolder folder;
    folder.id = mailbox;
    folder.name = role == MailFolder::Role::junk ? "Junk" : "INBOX";
    folder.count = added_;
    folder.role = role;
    return folder;
}

void SessionTest::scan() {
    if (!state) open();
    state->startScan(account(), inbox());
    finishTask();
}

void SessionTest::finishTask() {
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return state->scanTask()->finished(); }));
    world.mainQueue.pump();
    state->drainWrites();
}

void SessionTest::answerBySubject(std::vector<std::pair<std::string, std::string>> categories) {
    world.model.setScript(
        [categories = std::move(categories)](
            const doubles::ScriptedModel::Call& call) -> std::optional<LanguageModel::Answer> {
            const auto subject = call.prompt.substr(0, call.prompt.find("\nBODY:"));
            for (const auto& [word, category] : categories)
                if (subject.find(word) != std::string::npos)
                    return LanguageModel::Answer{{"category", category}};
            return LanguageModel::Answer{{"category", "cannotTell"}};
        });
}

const Verdict* SessionTest::verdictOf(std::int64_t id) const {
    for (const auto& verdict : *state->verdicts)
        if (verdict.id == id) return &verdict;
    return nullptr;
}

}  // namespace brindlet
