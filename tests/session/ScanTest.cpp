#include <gtest/gtest.h>

#include <algorithm>

#include "session/ScanStages.h"
#include "session/SessionFixture.h"

namespace brindlet {
namespace {

using Ids = AppState::Ids;
const std::string shop = "Shop <news@shop.example>";

class ScanTest : public SessionTest {
  protected:
    Rule addRule(const std::string& sender, Rule::Verdict verdict,
                 std::optional<Category> category = {}) {
        return *state->rules.add(sender, category, verdict, Rule::Scope::always, "x", {});
    }
    /// Every value that the session's stage takes from now on, repeats left out.
    void recordStages() {
        stageWatch = state->subscribe([this] { stages.push_back(*state->stage); });
    }
    std::vector<std::string> stagesSeen() {
        stages.push_back(*state->stage);
        stages.erase(std::unique(stages.begin(), stages.end()), stages.end());
        return stages;
    }
    std::vector<std::string> stages;
    Subscription stageWatch;
};

TEST_F(ScanTest, EndsInVerdictsTicksARecordAndSeenEntries) {
    const auto ad = add(shop, "Big sale");
    const auto bill = add("Power <no-reply@power.example>", "Your invoice");
    const auto protectedAd = add("Deals <deals@deals.example>", "Your order has shipped");
    answerBySubject({{"sale", "advertisingOrPromotion"},
                     {"invoice", "billOrPayment"},
                     {"shipped", "advertisingOrPromotion"}});
    scan();

    ASSERT_EQ(state->verdicts->size(), 3u);
    EXPECT_TRUE(verdictOf(ad)->isJunk);
    EXPECT_EQ(verdictOf(bill)->category, Category::billOrPayment);
    EXPECT_TRUE(verdictOf(protectedAd)->vetoed);
    EXPECT_EQ(*state->approved, Ids{ad});
    EXPECT_FALSE(*state->running);
    EXPECT_EQ(*state->stage, "");
    EXPECT_EQ(*state->screen, AppState::Screen::results);
    EXPECT_EQ(world.power.running(), 0);
    EXPECT_EQ(world.power.begun, std::vector<std::string>{"Sorting mail"});

    ASSERT_EQ(state->history.records->size(), 1u);
    const auto& record = state->history.records->front();
    EXPECT_EQ(record.account, "11111111");
    EXPECT_EQ(record.folder, "INBOX");
    EXPECT_EQ(record.scanned, 3);
    EXPECT_EQ(record.junk, 1);
    EXPECT_EQ(record.protectedCount, 1);
    EXPECT_EQ(record.started, world.clock.now());
    EXPECT_EQ(state->currentRecord, record);
    EXPECT_EQ(state->schedule.lastRun(), world.clock.now());
    EXPECT_EQ(state->seen.count("11111111", "INBOX"), 3);
    EXPECT_EQ(state->seen.junkCount("11111111", "INBOX"), 1);
    EXPECT_FALSE(state->seen.find("m3@example")->junk) << "a vetoed message is no junk";
}

TEST_F(ScanTest, ScanFileHoldsTheTicksAtOnce) {
    const auto ad = add(shop, "Big sale");
    add(shop, "Hello");
    answerBySubject({{"sale", "advertisingOrPromotion"}});
    scan();
    const auto saved = state->history.readScan(state->currentRecord->started);
    ASSERT_TRUE(saved);
    ASSERT_EQ(saved->size(), 2u);
    for (const auto& each : *saved) EXPECT_EQ(each.approved, each.n == ad);
}

TEST_F(ScanTest, SecondScanSkipsWhatWasDecided) {
    add(shop, "Big sale");
    scan();
    const auto later = add("Ann <ann@y.example>", "New one");
    scan();
    EXPECT_EQ(*state->skipped, 1);
    ASSERT_EQ(state->verdicts->size(), 1u);
    EXPECT_TRUE(verdictOf(later));
    EXPECT_EQ(state->history.records->size(), 2u);
}

TEST_F(ScanTest, WithSkippingOffEverythingIsLookedAtAgain) {
    add(shop, "Big sale");
    scan();
    state->seen.setSkipSeen(false);
    scan();
    EXPECT_EQ(*state->skipped, 0);
    EXPECT_EQ(state->verdicts->size(), 1u);
}

// What was filed into a junk folder is no news there, whatever the switch says.
TEST_F(ScanTest, JunkFolderAlwaysDropsWhatWasFiledIntoIt) {
    role = MailFolder::Role::junk;
    add(shop, "Filed by us");
    const auto other = add("Ann <ann@y.example>", "Arrived here by itself");
    open();
    state->seen.setSkipSeen(false);
    state->seen.mark({"m1@example"}, true, "11111111", "Junk");
    scan();
    ASSERT_EQ(state->verdicts->size(), 1u);
    EXPECT_TRUE(verdictOf(other));
    EXPECT_EQ(*state->skipped, 1);
}

TEST_F(ScanTest, JunkFolderTicksWhatIsReal) {
    role = MailFolder::Role::junk;
    add(shop, "Big sale");
    const auto real = add("Ann <ann@y.example>", "Lunch");
    answerBySubject({{"sale", "advertisingOrPromotion"}, {"Lunch", "personalMessageOrReminder"}});
    scan();
    EXPECT_EQ(*state->approved, Ids{real});
    EXPECT_FALSE(verdictOf(real)->isJunk) << "the verdicts themselves are not inverted";
}

TEST_F(ScanTest, MessageWithoutAnIdIsShownButNeverTickedOrRemembered) {
    add(shop, "Hello");
    const auto nameless = addUnreadable(shop, "Big sale");
    answerBySubject({{"sale", "advertisingOrPromotion"}});
    scan();
    ASSERT_TRUE(verdictOf(nameless));
    EXPECT_TRUE(verdictOf(nameless)->isJunk);
    EXPECT_FALSE(verdictOf(nameless)->messageID);
    EXPECT_EQ(*state->approved, Ids{});
    EXPECT_EQ(state->seen.size(), 1u);
    scan();
    EXPECT_EQ(state->verdicts->size(), 0u + 1u) << "a message without an id is never skipped";
}

TEST_F(ScanTest, EmptyMailboxEndsInResultsWithoutARecord) {
    open();
    state->approved.set({42});
    scan();
    EXPECT_EQ(*state->screen, AppState::Screen::results);
    EXPECT_TRUE(state->verdicts->empty());
    EXPECT_TRUE(state->history.records->empty());
    EXPECT_EQ(state->scanError.get(), std::nullopt);
    EXPECT_EQ(*state->approved, Ids{42}) << "ticks are left as they were";
    EXPECT_EQ(state->schedule.lastRun(), std::nullopt);
    EXPECT_FALSE(*state->running);
    EXPECT_EQ(world.power.running(), 1) << "the machine stays awake until the next scan";
    scan();
    EXPECT_EQ(world.power.running(), 1) << "which replaces the request";
}

TEST_F(ScanTest, UnreadableIndexGivesEmptyResultsAndNoError) {
    open();
    auto gone = inbox();
    gone.id = 999;
    state->startScan(account(), gone);
    finishTask();
    EXPECT_EQ(state->scanError.get(), std::nullopt);
    EXPECT_EQ(*state->screen, AppState::Screen::results);
}

TEST_F(ScanTest, FewerThanHalfReadableStopsTheScan) {
    addMany(499);
    for (int i = 0; i < 501; ++i) addUnreadable(shop, "Lost");
    scan();
    EXPECT_EQ(state->scanError.get(),
              "Brindlet could only read 499 of 1,000 messages on disk, so this scan was stopped "
              "before it wasted your time. This normally means Full Disk Access was lost - quit "
              "Brindlet and open it again.");
    EXPECT_TRUE(state->verdicts->empty());
    EXPECT_TRUE(state->history.records->empty());
    EXPECT_EQ(*state->screen, AppState::Screen::results);
    EXPECT_EQ(world.power.running(), 0);
    EXPECT_TRUE(world.model.calls().empty());
}

TEST_F(ScanTest, ExactlyHalfReadableGoesOn) {
    addMany(500);
    for (int i = 0; i < 500; ++i)
        addUnreadable("u" + std::to_string(i) + "@many.example", "Lost " + std::to_string(i));
    scan();
    EXPECT_EQ(state->scanError.get(), std::nullopt);
    EXPECT_EQ(state->verdicts->size(), 1000u);
}

TEST_F(ScanTest, OneUnreadableMessageAloneStops) {
    addUnreadable(shop, "Lost");
    scan();
    EXPECT_TRUE(state->scanError->has_value());
}

TEST_F(ScanTest, TwoOfFourReadableGoOn) {
    addMany(2);
    addUnreadable("a@a.example", "Lost");
    addUnreadable("b@b.example", "Lost too");
    scan();
    EXPECT_EQ(state->verdicts->size(), 4u);
}

TEST_F(ScanTest, SenderRuleDecidesWithoutTheModelAndBeatsTheVeto) {
    const auto order = add(shop, "Your order has shipped");
    open();
    addRule("@shop.example", Rule::Verdict::junk);
    scan();
    EXPECT_TRUE(world.model.calls().empty());
    EXPECT_TRUE(verdictOf(order)->isJunk);
    EXPECT_TRUE(verdictOf(order)->byRule);
    EXPECT_FALSE(verdictOf(order)->vetoed);
    EXPECT_EQ(verdictOf(order)->category, Category::advertisingOrPromotion);
}

TEST_F(ScanTest, SenderRuleToKeepMakesItPersonal) {
    const auto ad = add(shop, "Big sale");
    open();
    addRule("@shop.example", Rule::Verdict::keep);
    scan();
    EXPECT_EQ(verdictOf(ad)->category, Category::personalMessageOrReminder);
    EXPECT_FALSE(verdictOf(ad)->isJunk);
    EXPECT_TRUE(verdictOf(ad)->byRule);
}

TEST_F(ScanTest, OwnAddressGivesWayToASenderRuleButNotToANarrowerOne) {
    const auto mine = add("Me <me@shop.example>", "Hello");
    open();
    auto own = account();
    own.address = "ME@shop.example";
    state->accounts.set({own});
    addRule("@shop.example", Rule::Verdict::junk, Category::billOrPayment);
    answerBySubject({{"Hello", "billOrPayment"}});
    scan();
    EXPECT_TRUE(verdictOf(mine)->vetoed);
    EXPECT_FALSE(verdictOf(mine)->isJunk);

    addRule("@shop.example", Rule::Verdict::junk);
    state->seen.clear();
    scan();
    EXPECT_TRUE(verdictOf(mine)->isJunk);
    EXPECT_TRUE(verdictOf(mine)->byRule);
}

TEST_F(ScanTest, RulesMadeDuringAScanDoNotReachIt) {
    addMany(6);
    open();
    world.model.block();
    state->startScan(account(), inbox());
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return world.model.calls().size() >= 4; }));
    addRule("@many.example", Rule::Verdict::junk);
    world.model.release();
    finishTask();
    EXPECT_EQ(state->verdicts->junkCount(), 0);
}

TEST_F(ScanTest, CalibrationFlipsACategory) {
    const auto ad = add(shop, "Big sale");
    open();
    for (int i = 0; i < 12; ++i)
        state->calibration.record(Category::advertisingOrPromotion, Rule::Verdict::keep,
                                  "s" + std::to_string(i));
    answerBySubject({{"sale", "advertisingOrPromotion"}});
    scan();
    EXPECT_FALSE(verdictOf(ad)->isJunk);
    EXPECT_TRUE(verdictOf(ad)->byRule);
}

TEST_F(ScanTest, CorrespondentsAreCountedAndProtect) {
    const auto sent = home.addMailbox("Sent");
    doubles::MailHome::Message message;
    message.mailbox = sent;
    message.sender = "me@home.example";
    home.addRecipient(home.addMessage(message), "Bob@X.com");
    add("Bob <bob@x.com>", "Hi");
    scan();
    EXPECT_EQ(*state->correspondentCount, 1);
}

// Ten alike from one sender: three are asked for, the other seven inherit.
TEST_F(ScanTest, ClusterWhoseProbesAgreeInherits) {
    for (int i = 0; i < 10; ++i) add(shop, "Your weekly report");
    world.model.setScript(doubles::ScriptedModel::always("newsletterOrDigest"));
    scan();
    EXPECT_EQ(world.model.calls().size(), 3u);
    EXPECT_EQ(state->verdicts->size(), 10u);
    EXPECT_EQ(state->verdicts->junkCount(), 10);
}

// Whether it is junk must agree, not the category; the first probe's is inherited.
TEST_F(ScanTest, MembersInheritTheFirstProbesCategory) {
    std::vector<std::int64_t> ids;
    for (int i = 0; i < 10; ++i) ids.push_back(add(shop, "Your weekly report", std::to_string(i)));
    // Rows come newest first, so the first probe is the last added.
    world.model.setScript([](const auto& call) -> std::optional<LanguageModel::Answer> {
        const bool first = call.prompt.ends_with("BODY:\n9");
        return LanguageModel::Answer{
            {"category", first ? "newsletterOrDigest" : "advertisingOrPromotion"}};
    });
    scan();
    EXPECT_EQ(world.model.calls().size(), 3u);
    EXPECT_EQ(verdictOf(ids[8])->category, Category::newsletterOrDigest);
    EXPECT_EQ(verdictOf(ids[1])->category, Category::newsletterOrDigest);
}

TEST_F(ScanTest, ClusterWhoseProbesDisagreeGoesToTheModelWhole) {
    for (int i = 0; i < 10; ++i) add(shop, "Your weekly report", std::to_string(i));
    world.model.setScript([](const auto& call) -> std::optional<LanguageModel::Answer> {
        const bool first = call.prompt.ends_with("BODY:\n9");
        return LanguageModel::Answer{{"category", first ? "newsletterOrDigest" : "billOrPayment"}};
    });
    scan();
    EXPECT_EQ(world.model.calls().size(), 10u);
    EXPECT_EQ(state->verdicts->size(), 10u);
    EXPECT_EQ(state->verdicts->junkCount(), 1) << "the probes' own verdicts stay";
}

// An inheriting member is decided by its own subject: the sender's rule reaches it only behind the
// veto, while its probe was junk by that rule alone.
TEST_F(ScanTest, InheritingMemberMeetsTheVetoThatItsProbePassed) {
    const auto refund = add(shop, "You won a prize refund");
    for (int i = 0; i < 3; ++i) add(shop, "You won a prize");
    open();
    addRule("@shop.example", Rule::Verdict::junk);
    scan();
    ASSERT_EQ(state->verdicts->size(), 4u);
    EXPECT_TRUE(world.model.calls().empty());
    if (verdictOf(refund)->category == Category::advertisingOrPromotion &&
        !verdictOf(refund)->isJunk) {
        EXPECT_TRUE(verdictOf(refund)->vetoed);
        EXPECT_TRUE(verdictOf(refund)->byRule);
    } else {
        ADD_FAILURE() << "the refund was no member of the cluster";
    }
    EXPECT_EQ(state->verdicts->junkCount(), 3);
}

TEST_F(ScanTest, FourRequestsAreInFlightAtOnce) {
    addMany(12);
    open();
    world.model.block();
    state->startScan(account(), inbox());
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return world.model.calls().size() >= 4; }));
    world.mainQueue.pump();
    EXPECT_EQ(world.model.calls().size(), 4u) << "the fifth waits for an answer";
    world.model.release();
    finishTask();
    EXPECT_LE(world.model.mostInFlight(), 4);
    EXPECT_EQ(state->verdicts->size(), 12u);
}

TEST_F(ScanTest, FailingModelLeavesEverythingInPlace) {
    addMany(5);
    world.model.setScript([](const auto&) { return std::nullopt; });
    scan();
    EXPECT_EQ(state->verdicts->size(), 5u);
    EXPECT_TRUE(state->approved->empty());
    for (const auto& verdict : *state->verdicts) EXPECT_EQ(verdict.category, Category::cannotTell);
    EXPECT_EQ(state->history.records->size(), 1u);
}

/// The counts at which progress was published, of a scan of so many unlike messages.
class PublishTest : public ScanTest, public testing::WithParamInterface<int> {};

TEST_P(PublishTest, EveryEighthResultAndEachOneWhenNoneIsLeftToStart) {
    const int n = GetParam();
    addMany(n);
    open();
    std::vector<std::int64_t> counts;
    std::uint64_t revision = 0;
    const auto watch = state->subscribe([&] {
        if (!*state->running || state->verdicts.revision() == revision) return;
        revision = state->verdicts.revision();
        if (!state->verdicts->empty())
            counts.push_back(static_cast<std::int64_t>(state->verdicts->size()));
    });
    scan();
    std::vector<std::int64_t> expected;
    for (int i = 1; i <= n; ++i)
        if (i % 8 == 0 || i >= n - 4) expected.push_back(i);
    // The settled list of a scan whose last result has just been published is no news.
    counts.erase(std::unique(counts.begin(), counts.end()), counts.end());
    EXPECT_EQ(counts, expected);
}

INSTANTIATE_TEST_SUITE_P(Sizes, PublishTest, testing::Values(4, 9, 20, 40));

TEST_F(ScanTest, PublishedVerdictsAscendByIdAndTheFinalOnesFollowThePlan) {
    addMany(30);
    open();
    bool ascending = true;
    const auto watch = state->subscribe([&] {
        if (!*state->running) return;
        const auto& list = *state->verdicts;
        if (list.size() == 30) return;
        for (std::size_t i = 1; i < list.size(); ++i) ascending &= list[i - 1].id < list[i].id;
    });
    scan();
    EXPECT_TRUE(ascending);
    for (std::size_t i = 1; i < 30; ++i)
        EXPECT_GT((*state->verdicts)[i - 1].id, (*state->verdicts)[i].id) << "newest first";
}

TEST_F(ScanTest, RateAndTimeLeftFollowTheClock) {
    addMany(20);
    open();
    world.model.setScript([this](const auto&) {
        world.clock.advance(0.5);
        return LanguageModel::Answer{{"category", "cannotTell"}};
    });
    std::optional<double> eta;
    const auto watch = state->subscribe([&] {
        if (*state->done == 8) eta = *state->eta;
    });
    scan();
    ASSERT_TRUE(eta);
    EXPECT_GT(*eta, 0);
    EXPECT_GT(*state->rate, 0);
    EXPECT_LE(*state->rate, 2.01);
    EXPECT_EQ(state->eta.get(), std::nullopt) << "none once all is settled";
}

TEST_F(ScanTest, StagesComeInTheirOrder) {
    addMany(300);
    open();
    state->seen.mark({"m1@example"}, false, "11111111", "INBOX");
    recordStages();
    scan();
    EXPECT_EQ(stagesSeen(), (std::vector<std::string>{
                                "", "Reading your mailbox", "Locating messages on disk",
                                "Reading messages - 256 of 300", "Reading messages - 300 of 300",
                                "Sorting 299 new - skipped 1 already sorted",
                                "Sorting with the on-device model", ""}));
}

TEST_F(ScanTest, LimitAndReachBoundTheRows) {
    addMany(5);
    open();
    state->setLimit(2);
    scan();
    EXPECT_EQ(state->verdicts->size(), 2u);
    state->setLimit(0);
    state->reach.set(Reach::week);
    state->seen.clear();
    world.clock.set(Date::fromUnix(1'699'999'003 + 604'800));
    scan();
    EXPECT_EQ(state->verdicts->size(), 3u) << "those at or after the cut-off";
}

TEST_F(ScanTest, PauseOnBatteryWaitsUntilPluggedIn) {
    addMany(8);
    open();
    world.power.battery.set(true);
    recordStages();
    state->startScan(account(), inbox());
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return world.clock.sleeps().size() == 1; }));
    EXPECT_EQ(world.clock.sleeps().front(), 3.0);
    EXPECT_EQ(*state->stage,
              "Paused - on battery. Plug in to continue, or allow battery scanning below.");
    world.clock.advance(3);
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return world.clock.sleeps().size() == 2; }));
    world.power.battery.set(false);
    world.clock.advance(3);
    finishTask();
    EXPECT_EQ(state->verdicts->size(), 8u);
    const auto seen = stagesSeen();
    ASSERT_GE(seen.size(), 3u);
    EXPECT_EQ(seen[seen.size() - 2], "Sorting with the on-device model");
}

TEST_F(ScanTest, AllowingBatteryScansEndsThePause) {
    addMany(8);
    open();
    world.power.battery.set(true);
    state->startScan(account(), inbox());
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return world.clock.sleeps().size() == 1; }));
    state->schedule.setPauseOnBattery(false);
    world.clock.advance(3);
    finishTask();
    EXPECT_EQ(state->verdicts->size(), 8u);
    EXPECT_EQ(world.clock.sleeps().size(), 1u);
}

}  // namespace
}  // namespace brindlet
