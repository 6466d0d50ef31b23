#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <thread>

#include "platform/MainQueue.h"
#include "session/ReviewFixture.h"

namespace brindlet {
namespace {

using Answer = std::optional<LanguageModel::Answer>;
using Call = doubles::ScriptedModel::Call;
using Strings = std::vector<std::string>;

class KinSearch : public ReviewTest {
  protected:
    /// Says of each subject with one of the words that it tells of the same event.
    void setKin(Strings words) {
        world.model.setScript([words = std::move(words)](const Call& call) -> Answer {
            for (const auto& word : words)
                if (call.prompt.find(word) != std::string::npos)
                    return LanguageModel::Answer{{"action", "sent"}, {"object", ""}};
            return LanguageModel::Answer{{"action", "other"}, {"object", ""}};
        });
    }
    /// Does the deed on the main thread in the middle of the call with this number, from 1.
    void during(int number, std::function<void()> deed) {
        world.model.setScript([this, number, deed = std::move(deed)](const Call&) -> Answer {
            if (++calls == number) hop(world.mainQueue, deed);
            return LanguageModel::Answer{{"action", "sent"}, {"object", ""}};
        });
    }
    Strings asked() const {
        Strings subjects;
        for (const auto& call : world.model.calls()) subjects.push_back(call.prompt);
        return subjects;
    }
    void showTen() {
        for (const auto* subject :
             {"one", "two", "three", "four", "five", "six", "seven", "eight", "nine", "ten"})
            addVerdict("ann@x.example", subject);
        show();
    }
    void addShapes() {
        for (const auto* shape : {"Parcel left depot ", "Parcel reached depot ", "Ann wrote you ",
                                  "Weekly report ready ", "Concert tickets here "})
            for (int i = 0; i < 3; ++i) addVerdict("ann@x.example", shape + std::to_string(i + 1));
    }
    /// The offer on show with one of its messages taken out of its lists.
    void loseFromOffer(std::int64_t id) {
        state->pending.mutate([&](auto& offer) {
            std::erase(offer->members, id);
            std::erase(offer->everything, id);
        });
    }

    std::atomic<int> calls = 0;
};

TEST_F(KinSearch, AsksForTheMessagesAndThenForTheShapes) {
    addShapes();
    show();
    setKin({});
    state->toggleMessage(2);
    finishSearch();
    const Strings subjects{// the first twelve others
                           "Parcel left depot 2", "Parcel left depot 1", "Parcel left depot 3",
                           "Parcel reached depot 1", "Parcel reached depot 2",
                           "Parcel reached depot 3", "Ann wrote you 1", "Ann wrote you 2",
                           "Ann wrote you 3", "Weekly report ready 1", "Weekly report ready 2",
                           "Weekly report ready 3", "Concert tickets here 1",
                           // the one shape that is like it
                           "Parcel left depot 2", "Parcel reached depot 1"};
    EXPECT_EQ(asked(), subjects);
    for (const auto& call : world.model.calls()) EXPECT_EQ(call.schema, "Event");
}

TEST_F(KinSearch, AsksNothingMoreWhereThereIsNoShape) {
    addVerdict("ann@x.example", "one");
    addVerdict("ann@x.example", "two");
    show();
    setKin({});
    state->toggleMessage(1);
    finishSearch();
    EXPECT_EQ(asked(), (Strings{"one", "two"}));
}

TEST_F(KinSearch, ThatNamesWhatIsOfferedAnywayLeavesTheOfferAsItIs) {
    showTen();
    setKin({"four", "three", "seven"});
    state->toggleMessage(4);
    const auto offer = *state->pending;
    const auto revision = state->pending.revision();
    finishSearch();
    EXPECT_EQ(*state->pending, offer);
    EXPECT_EQ(state->pending.revision(), revision);
    EXPECT_TRUE(offer->kin.empty());
}

TEST_F(KinSearch, CompletesAnOfferThatLacksAMessage) {
    showTen();
    setKin({"four", "seven"});
    state->toggleMessage(4);
    loseFromOffer(7);
    finishSearch();
    EXPECT_EQ((*state->pending)->kin, (Numbers{1, 2, 3, 5, 6, 8, 9, 10, 7}));
    EXPECT_EQ((*state->pending)->kinWhat, "");
}

TEST_F(KinSearch, CompletesAnOfferByShape) {
    for (int i = 0; i < 14; ++i)
        addVerdict("ann@x.example", "Word" + std::string(1, static_cast<char>('a' + i)));
    addShapes();
    show();
    setKin({"left", "reached"});
    state->toggleMessage(15);
    EXPECT_EQ((*state->pending)->templateWords, (Words{"parcel", "left", "depot"}));
    loseFromOffer(20);
    finishSearch();
    EXPECT_TRUE(std::count((*state->pending)->kin.begin(), (*state->pending)->kin.end(), 20))
        << "it is none of the twelve that were asked about";
    EXPECT_EQ((*state->pending)->kinWhat, "parcel left depot");
}

TEST_F(KinSearch, WithoutAnAnswerLeavesTheOfferWithoutKin) {
    showTen();
    state->toggleMessage(4);
    loseFromOffer(7);
    const auto offer = *state->pending;
    finishSearch();
    EXPECT_EQ(*state->pending, offer);
}

TEST_F(KinSearch, FindsTheOfferGone) {
    showTen();
    world.model.block();
    setKin({"four", "seven"});
    state->toggleMessage(4);
    world.model.waitForCalls(1);
    state->dismissPending();
    EXPECT_FALSE(state->kindTask()->cancelled()) << "only the next search cancels it";
    world.model.release();
    finishSearch();
    EXPECT_EQ(*state->pending, std::nullopt);
}

TEST_F(KinSearch, FindsAnotherOfferInItsPlace) {
    showTen();
    world.model.block();
    setKin({"four", "seven"});
    state->toggleMessage(4);
    world.model.waitForCalls(1);
    auto other = *state->pending;
    other->sourceID = 5;
    other->everything = {1};
    state->pending.set(other);
    world.model.release();
    finishSearch();
    EXPECT_EQ(*state->pending, other);
}

TEST_F(KinSearch, EndsWithTheNext) {
    showTen();
    addVerdicts(2, "bob@x.example", "Hello");
    show();
    world.model.block();
    setKin({"four"});
    state->toggleMessage(4);
    world.model.waitForCalls(1);
    const Task first = *state->kindTask();
    state->toggleMessage(11);
    EXPECT_TRUE(first.cancelled());
    world.model.release();
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return first.finished(); }));
    finishSearch();
    const auto subjects = asked();
    EXPECT_EQ(std::count(subjects.begin(), subjects.end(), "one"), 0);
    EXPECT_EQ((*state->pending)->sourceID, 11);
}

// One untick and one tick of the same message: the first search knows of another state.
TEST_F(KinSearch, NeverCompletesALaterOfferForTheSameMessage) {
    showTen();
    state->approved.set({1, 2, 3, 4, 5});
    setKin({"one", "two", "three", "nine"});
    state->toggleMessage(1);
    // All its answers wait for the main thread, which does something else first.
    while (world.mainQueue.waiting() == 0) std::this_thread::yield();
    state->toggleMessage(1);
    const auto offer = *state->pending;
    const auto revision = state->pending.revision();
    finishSearch();
    EXPECT_EQ(offer->everything, (Numbers{6, 7, 8, 9, 10}));
    EXPECT_EQ(*state->pending, offer);
    EXPECT_EQ(state->pending.revision(), revision);
}

// Ten messages and no shapes: the source, nine candidates.
constexpr int allCalls = 10;

class KinSearchAtEachCall : public KinSearch, public testing::WithParamInterface<int> {};

TEST_P(KinSearchAtEachCall, IsCancelledByTheNextAndCompletesNothing) {
    showTen();
    addVerdicts(2, "bob@x.example", "Hello");
    show();
    std::optional<Task> first;
    during(GetParam(), [&] {
        first = state->kindTask();
        state->toggleMessage(11);
    });
    state->toggleMessage(4);
    loseFromOffer(7);
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return first && first->finished(); }));
    finishSearch();
    EXPECT_TRUE(first->cancelled());
    EXPECT_EQ((*state->pending)->sourceID, 11);
    EXPECT_TRUE((*state->pending)->kin.empty());
    // The second search: its source and its one candidate. The first stops after the call that it
    // was in.
    EXPECT_EQ(calls, GetParam() + 2);
}

TEST_P(KinSearchAtEachCall, EndsWithTheSession) {
    showTen();
    during(GetParam(), [&] { state.reset(); });
    state->toggleMessage(4);
    const Task search = *state->kindTask();
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return search.finished(); }));
    EXPECT_EQ(calls, allCalls) << "one run of questions is not interrupted by that";
}

TEST_P(KinSearchAtEachCall, EndsWithTheLoop) {
    showTen();
    during(GetParam(), [] {});
    state->toggleMessage(4);
    loseFromOffer(7);
    // It stands in that call: what the deed asks of the main thread waits.
    while (world.mainQueue.waiting() == 0) std::this_thread::yield();
    world.mainQueue.end();
    state->kindTask()->wait();
    EXPECT_TRUE((*state->pending)->kin.empty());
}

INSTANTIATE_TEST_SUITE_P(Calls, KinSearchAtEachCall, testing::Range(1, allCalls + 1));

}  // namespace
}  // namespace brindlet
