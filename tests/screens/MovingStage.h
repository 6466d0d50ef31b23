#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <string>
#include <vector>

#include "base/Files.h"
#include "screens/Stage.h"

namespace brindlet::testing {

/// A stage behind which the mail program moves what the test lets it, when the test lets it.
class MovingStage : public Stage {
  public:
    explicit MovingStage(const std::function<void(AppState&)>& prepare = scenes::movable)
        : Stage(prepare) {
        world.processes.block();
        std::vector<std::string> all;
        for (const auto& verdict : *state->verdicts)
            if (verdict.messageID) all.push_back(*verdict.messageID);
        letMove(all);
        // The pause after a swap of buttons, which no test waits for.
        if (auto* bar = find(QStringLiteral("moveBar")))
            bar->findChild<QObject*>(QStringLiteral("swapped"))->setProperty("interval", 0);
    }

    /// What has left by the time when the next move ends, or is stopped.
    void letMove(std::vector<std::string> ids, const std::string& error = {}) {
        world.processes.setScript([ids = std::move(ids), error](const auto& run) {
            std::string done;
            for (const auto& id : ids) done += id + "\n";
            files::write(run.arguments[7], done);
            doubles::ScriptedProcessRunner::Reply reply;
            reply.error = error;
            if (error.empty()) reply.output = std::to_string(ids.size()) + "|7|false|false\n";
            return reply;
        });
    }

    /// The mail program tells that it has moved so many.
    void report(std::int64_t moved) {
        world.processes.waitForLaunches(1);
        files::write(world.processes.launches().back().arguments[6],
                     "move|" + std::to_string(moved) + "|72");
        ASSERT_TRUE(world.mainQueue.pumpUntil([&] {
            world.clock.advance(0.5);
            return *state->movedCount == moved;
        }));
        settle();
    }

    void finish() {
        ASSERT_TRUE(state->moveTask());
        world.processes.release();
        ASSERT_TRUE(world.mainQueue.pumpUntil([&] {
            world.clock.advance(0.5);
            return state->moveTask()->finished();
        }));
        world.mainQueue.pump();
        settle();
    }

    void openMenu() const {
        EXPECT_TRUE(click(QStringLiteral("destinations")));
        EXPECT_NE(await(QStringLiteral("destination0")), nullptr);
        layOut();
    }
    /// Until everything has its place and size.
    void layOut() const { (void)window()->grabWindow(); }

    /// What the item of that name says; empty when it does not stand.
    std::string text(const char* name) const {
        const auto* item = find(QString::fromUtf8(name));
        auto words = item ? item->property("text").toString() : QString();
        return words.remove(QChar(0x200e)).toStdString();
    }
    bool stands(const char* name) const { return find(QString::fromUtf8(name)) != nullptr; }
};

}  // namespace brindlet::testing
