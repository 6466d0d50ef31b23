#include "stores/Interrupted.h"

#include <gtest/gtest.h>

#include <limits>

#include "stores/StoreWorld.h"

namespace brindlet {
namespace {

constexpr std::string_view fileName = "pending-move.json";

PendingMove moveOf(std::vector<std::string> messageIDs) {
    PendingMove move;
    move.account = "ann@home.example";
    move.source = "INBOX";
    move.destination = "Lists/Club \"A\"";
    move.folderLabel = "Inbox";
    std::int64_t id = 9007199254740993;
    for (auto& messageID : messageIDs) move.remaining.push_back({id++, std::move(messageID)});
    move.started = Date::fromUnix(1'700'000'000.25);
    return move;
}

std::vector<std::string> left(const Interrupted& interrupted) {
    std::vector<std::string> messageIDs;
    for (const auto& item : (*interrupted.pending)->remaining) messageIDs.push_back(item.messageID);
    return messageIDs;
}

/// The file with some members changed; an empty value leaves one out.
std::string moveJson(const std::map<std::string, std::string>& changes = {}) {
    std::map<std::string, std::string> members = {
        {"account", R"("ann@home.example")"},
        {"source", R"("INBOX")"},
        {"destination", R"("Junk")"},
        {"folderLabel", R"("Inbox")"},
        {"remaining", R"([{"id":1,"messageID":"a@x"}])"},
        {"done", "3"},
        {"started", "721692800.5"},
    };
    for (const auto& [key, value] : changes) members[key] = value;
    std::string text;
    for (const auto& [key, value] : members)
        if (!value.empty()) text += (text.empty() ? "" : ",") + ("\"" + key + "\":" + value);
    return "{" + text + "}";
}

struct InterruptedWorld : StoreWorld {
    Interrupted interrupted{services()};
};

TEST(Interrupted, TheFileIsThereExactlyWhileAMoveIsUnfinished) {
    InterruptedWorld world;
    auto& interrupted = world.interrupted;
    EXPECT_EQ(*interrupted.pending, std::nullopt);
    EXPECT_FALSE(world.has(fileName));
    const Signals signals(interrupted);
    const auto move = moveOf({"a@x", "b@x"});
    interrupted.begin(move);
    EXPECT_EQ(*interrupted.pending, move);
    EXPECT_EQ(*Interrupted(world.services()).pending, move);
    interrupted.clear();
    EXPECT_EQ(*interrupted.pending, std::nullopt);
    EXPECT_FALSE(world.has(fileName));
    EXPECT_EQ(*Interrupted(world.services()).pending, std::nullopt);
    EXPECT_EQ(signals.count(), 2);
}

TEST(Interrupted, ANewMoveTakesTheOldOnesPlace) {
    InterruptedWorld world;
    world.interrupted.begin(moveOf({"a@x", "b@x"}));
    world.interrupted.begin(moveOf({"c@x"}));
    EXPECT_EQ(left(Interrupted(world.services())), std::vector<std::string>{"c@x"});
}

TEST(InterruptedMarkDone, TakesOffWhatLandedAndKeepsTheOrderOfTheRest) {
    InterruptedWorld world;
    auto& interrupted = world.interrupted;
    interrupted.begin(moveOf({"e@x", "a@x", "d@x", "b@x", "c@x"}));
    interrupted.markDone({"a@x", "b@x"});
    EXPECT_EQ(left(interrupted), (std::vector<std::string>{"e@x", "d@x", "c@x"}));
    EXPECT_EQ((*interrupted.pending)->done, 2);
    interrupted.markDone({"e@x", "a@x"});
    EXPECT_EQ(left(interrupted), (std::vector<std::string>{"d@x", "c@x"}));
    EXPECT_EQ((*interrupted.pending)->done, 3);
    EXPECT_EQ(*Interrupted(world.services()).pending, *interrupted.pending);
}

TEST(InterruptedMarkDone, DoneAndTheRestAddUpToTheMove) {
    InterruptedWorld world;
    auto& interrupted = world.interrupted;
    interrupted.begin(moveOf({"a@x", "b@x", "c@x", "d@x"}));
    for (const std::set<std::string>& landed :
         {std::set<std::string>{"b@x"}, {"x@x"}, {"b@x", "d@x"}, {}, {"a@x", "c@x"}}) {
        interrupted.markDone(landed);
        const auto& move = **interrupted.pending;
        EXPECT_EQ(move.done + std::ssize(move.remaining), 4);
    }
}

TEST(InterruptedMarkDone, TwoMessagesWithOneIdLeaveTogether) {
    InterruptedWorld world;
    world.interrupted.begin(moveOf({"a@x", "b@x", "a@x"}));
    world.interrupted.markDone({"a@x"});
    EXPECT_EQ(left(world.interrupted), std::vector<std::string>{"b@x"});
    EXPECT_EQ((*world.interrupted.pending)->done, 2);
}

TEST(InterruptedMarkDone, UnknownIdsChangeNothingAndAreSavedAllTheSame) {
    InterruptedWorld world;
    const auto move = moveOf({"a@x"});
    world.interrupted.begin(move);
    files::remove(world.file(fileName));
    world.interrupted.markDone({"z@x", "A@x"});
    EXPECT_EQ(*world.interrupted.pending, move);
    EXPECT_EQ(*Interrupted(world.services()).pending, move);
}

TEST(InterruptedMarkDone, NothingLeftIsKeptUntilItIsCleared) {
    InterruptedWorld world;
    world.interrupted.begin(moveOf({"a@x"}));
    world.interrupted.markDone({"a@x"});
    ASSERT_TRUE(*world.interrupted.pending);
    EXPECT_TRUE(left(world.interrupted).empty());
    EXPECT_EQ((*world.interrupted.pending)->done, 1);
    EXPECT_TRUE(world.has(fileName));
}

TEST(InterruptedMarkDone, WithoutAMoveDoesNothing) {
    InterruptedWorld world;
    const Signals signals(world.interrupted);
    world.interrupted.markDone({"a@x"});
    EXPECT_EQ(*world.interrupted.pending, std::nullopt);
    EXPECT_EQ(signals.count(), 0);
    EXPECT_FALSE(world.has(fileName));
}

TEST(InterruptedMarkDone, TheCountStopsAtTheEndOfItsType) {
    StoreWorld world;
    const auto most = std::numeric_limits<std::int64_t>::max();
    world.put(fileName, moveJson({{"done", std::to_string(most)}}));
    Interrupted interrupted(world.services());
    interrupted.markDone({"a@x"});
    EXPECT_EQ((*interrupted.pending)->done, most);
}

TEST(InterruptedFile, AMoveWithNothingLeftVanishesAtTheNextStart) {
    InterruptedWorld world;
    world.interrupted.begin(moveOf({"a@x"}));
    world.interrupted.markDone({"a@x"});
    EXPECT_EQ(*Interrupted(world.services()).pending, std::nullopt);
    EXPECT_FALSE(world.has(fileName));
}

TEST(InterruptedFile, IsReadWholeAndPassesOverWhatItDoesNotKnow) {
    StoreWorld world;
    world.put(fileName, moveJson({{"more", "[1]"}, {"started", "721692800"}, {"done", "2.0"}}));
    const Interrupted interrupted(world.services());
    ASSERT_TRUE(*interrupted.pending);
    EXPECT_EQ((*interrupted.pending)->done, 2);
    EXPECT_EQ((*interrupted.pending)->started, Date{721692800});
    EXPECT_EQ((*interrupted.pending)->remaining, (std::vector<PendingMove::Item>{{1, "a@x"}}));
}

TEST(InterruptedFile, DamageIsIgnoredAndKeepsItsBytesUntilAMoveOverwritesIt) {
    std::vector<std::string> texts(std::begin(damagedTexts), std::end(damagedTexts));
    for (const char* key :
         {"account", "source", "destination", "folderLabel", "remaining", "done", "started"})
        for (const char* value : {"", "null", "[[]]", "{\"a\":1}", "true"})
            texts.push_back(moveJson({{key, value}}));
    for (const char* items :
         {"[null]", "[1]", "[[]]", "[{}]", R"([{"id":1}])", R"([{"messageID":"a@x"}])",
          R"([{"id":1.5,"messageID":"a@x"}])", R"([{"id":"1","messageID":"a@x"}])",
          R"([{"id":1,"messageID":null}])", R"([{"id":1,"messageID":"a@x"},{"id":2}])"})
        texts.push_back(moveJson({{"remaining", items}}));
    const auto move = moveOf({"b@x"});
    for (const auto& text : texts) {
        SCOPED_TRACE(text);
        StoreWorld world;
        world.put(fileName, text);
        for (int start = 0; start < 2; ++start)
            EXPECT_EQ(*Interrupted(world.services()).pending, std::nullopt);
        EXPECT_EQ(world.text(fileName), text);
        EXPECT_FALSE(world.has(std::string(fileName) + ".unreadable"));
        Interrupted(world.services()).begin(move);
        EXPECT_EQ(*Interrupted(world.services()).pending, move);
    }
}

TEST(InterruptedFile, IsRemovedByForgettingEvenIfItIsDamaged) {
    StoreWorld world;
    world.put(fileName, "damage");
    Interrupted(world.services()).clear();
    EXPECT_FALSE(world.has(fileName));
}

}  // namespace
}  // namespace brindlet
