#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "doubles/Doubles.h"
#include "platform/posix/PosixProcessRunner.h"
#include "sample/HandmadeHome.h"
#include "sample/MailIndex.h"
#include "sample/MailSettings.h"
#include "session/AppState.h"

namespace brindlet {

/// A sleep that only lets others have their turn.
class YieldingClock : public Clock {
  public:
    Date now() const override { return Date::fromUnix(1'700'000'000); }
    bool sleep(double, const CancelToken& token) override {
        std::this_thread::yield();
        return !token.cancelled();
    }
};

/// The session over the stand-in for the script host as a process, and a simulated mail program
/// with its files: one account with a source folder, the program's own junk folder, and a session
/// over them.
struct MailWorld {
    doubles::World doubles;
    YieldingClock clock;
    PosixProcessRunner processes;
    /// What else than the double leads connections to servers; null for nothing.
    TlsConnector* connector = nullptr;
    sample::HandmadeHome home{doubles.directories.home()};
    std::string source;
    std::size_t account = home.addAccount("Harbour", "robin@harbour.example");
    std::int64_t mailbox;
    std::vector<Verdict> listed;
    std::shared_ptr<AppState> state;

    explicit MailWorld(std::string folder = "INBOX")
        : source(std::move(folder)), mailbox(home.addMailbox(account, source)) {
        home.addMailbox(account, "Brindlet Junk");
    }
    ~MailWorld() {
        doubles.mainQueue.end();
        if (state && state->moveTask()) state->moveTask()->wait();
        if (state && state->persistTask()) state->persistTask()->wait();
    }

    /// Gives the message's row.
    std::int64_t add(const std::string& id) {
        return home.addMessage({.mailbox = mailbox, .messageId = id});
    }
    void list(std::int64_t row, const std::string& id) {
        Verdict verdict;
        verdict.id = row;
        verdict.messageID = id;
        verdict.sender = "shop@x.example";
        verdict.category = Category::advertisingOrPromotion;
        verdict.isJunk = true;
        listed.push_back(verdict);
    }
    void addListed(const std::string& id) { list(add(id), id); }

    /// Opens the session with everything that is listed ticked, as after a scan.
    AppState& open() {
        EXPECT_TRUE(home.finish());
        return openFinished();
    }
    /// The same once the home stands.
    AppState& openFinished() {
        ::setenv(sample::sampleHomeVariable, home.home().c_str(), 1);
        auto& [manual, directories, queue, defaults, model, power, desktop, locale, scripted, apps,
               keys, tls, host] = doubles;
        state = AppState::make({clock, directories, queue, defaults, model, power, desktop, locale,
                                processes, apps, keys, connector ? *connector : tls,
                                BRINDLET_OSASCRIPT});
        state->loadAccounts(true);
        EXPECT_TRUE(queue.pumpUntil([this] { return !*state->loadingAccounts; }));
        EXPECT_EQ(state->account.get()->address, "robin@harbour.example");
        for (const auto& folder : (*state->account)->folders)
            if (folder.name == source) state->folder.set(folder);
        EXPECT_TRUE(*state->folder) << "no folder " << source;
        state->verdicts.set(VerdictList(listed));
        AppState::Ids all;
        for (const auto& verdict : listed) all.insert(verdict.id);
        state->approved.set(all);
        return *state;
    }
    void finishMove() {
        ASSERT_TRUE(state->moveTask());
        const Task task = *state->moveTask();
        ASSERT_TRUE(doubles.mainQueue.pumpUntil([&] { return task.finished(); }));
        doubles.mainQueue.pump();
    }
    void move() {
        state->startMove();
        finishMove();
    }
    void putAllBack() {
        AppState::Ids all;
        for (const auto position : state->movedVerdicts())
            all.insert((*state->verdicts)[position].id);
        state->putBack.set(all);
        state->putBackMoved();
        finishMove();
    }
    std::vector<std::string> idsIn(const std::string& path) const {
        const auto index = sample::MailIndex::open(home.indexPath());
        const auto& owner = home.settings.accounts[account];
        std::vector<std::string> ids;
        for (const auto& each : index->mailboxes()) {
            if (each.url != sample::mailboxUrl(owner.scheme, owner.id, path)) continue;
            const std::vector<std::int64_t> rows = index->messages(each.row);
            for (const auto row : rows) ids.push_back(index->messageId(row).value_or("none"));
        }
        std::sort(ids.begin(), ids.end());
        return ids;
    }
};

}  // namespace brindlet
