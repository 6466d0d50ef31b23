#include <gtest/gtest.h>

#include <algorithm>

#include "base/Files.h"
#include "doubles/Doubles.h"
#include "doubles/HttpServer.h"
#include "doubles/MailHome.h"
#include "stores/History.h"
#include "stores/Seen.h"
#include "tools/RunTool.h"

namespace brindlet {
namespace {

class ScanTool : public testing::Test {
  protected:
    ScanTool() : home(world.directories.home()), mailbox(home.addMailbox("INBOX")) {
        add("Harbour Shop <news@harbourshop.example>", "Last chance: 40% off everything", "a1");
        add("Ann Baker <ann@baker.example>", "Dinner on Thursday?", "a2");
    }
    void add(const std::string& sender, const std::string& subject, const std::string& id) {
        doubles::MailHome::Message message;
        message.mailbox = mailbox;
        message.sender = sender;
        message.subject = subject;
        message.messageID = id + "@example";
        home.addMessage(message);
    }
    std::string command(const std::string& rest = {}) const {
        return "scan_mail_store --home " + world.directories.home() + " " +
               doubles::MailHome::account + " INBOX " + rest;
    }
    static auto lines(const std::string& text) {
        return std::count(text.begin(), text.end(), '\n');
    }

    doubles::World world;
    doubles::MailHome home;
    std::int64_t mailbox;
};

TEST_F(ScanTool, PrintsALineForEachVerdict) {
    const auto outcome = run(command());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(lines(outcome.printed), 2) << outcome.printed;
    EXPECT_NE(outcome.printed.find("\"messageID\":\"a1@example\""), std::string::npos);
    EXPECT_NE(outcome.printed.find("\"subject\":\"Dinner on Thursday?\",\"category\":"),
              std::string::npos);
}

TEST_F(ScanTool, TellsItsStagesOnStandardError) {
    const auto told = run(command(), errorsOnly).printed;
    EXPECT_EQ(told.rfind("Reading your mailbox\nLocating messages on disk\n"
                         "Reading messages - 2 of 2\nSorting with the on-device model\n2 messages:",
                         0),
              0u)
        << told;
    EXPECT_NE(told.find("2 model calls, "), std::string::npos) << told;
}

TEST_F(ScanTool, KeepsWhatItLearnsInTheStoreThatItIsGiven) {
    const auto withStore = command("--store " + world.directories.store());
    EXPECT_EQ(lines(run(withStore).printed), 2);
    EXPECT_EQ(lines(run(withStore).printed), 0) << "all was decided before";
    const History history(world.services());
    ASSERT_EQ(history.records->size(), 1u);
    EXPECT_EQ(history.records->front().scanned, 2);
    EXPECT_TRUE(history.readScan(history.records->front().started));
    EXPECT_EQ(Seen(world.services()).size(), 2u);
}

TEST_F(ScanTool, TakesALimit) {
    EXPECT_EQ(lines(run(command("--limit 1")).printed), 1);
}

TEST_F(ScanTool, LetsAModelServerOnThisMachineSort) {
    doubles::HttpServer server([](const auto&) {
        return doubles::HttpServer::answer(
            doubles::chatCompletion(R"({"category":"deliveryFailureBounce"})"));
    });
    const std::string named = "--model-server " + server.url() + " --model-server-name small";
    const auto outcome = run(command(named));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.printed.find("\"category\":\"deliveryFailureBounce\""), std::string::npos)
        << outcome.printed;
    ASSERT_EQ(server.requests().size(), 2u);
    EXPECT_NE(server.requests()[0].body.find("\"model\":\"small\""), std::string::npos);
}

TEST_F(ScanTool, TellsOfAServerThatIsNotThisMachineAndSortsByItself) {
    const auto named = command("--model-server http://192.0.2.1:8080");
    const auto told = run(named, errorsOnly).printed;
    EXPECT_EQ(told.rfind("The model server \"http://192.0.2.1:8080\" is not asked", 0), 0u) << told;
    EXPECT_EQ(run(named).printed, run(command()).printed);
}

TEST_F(ScanTool, SaysWhatIsWrong) {
    EXPECT_EQ(run("scan_mail_store --help").status, 0);
    for (const char* wrong : {"", "--limit x", "--reach decade", "--home /nowhere", "--colour red"})
        EXPECT_EQ(run(std::string("scan_mail_store ") + wrong).status, 2) << wrong;
    EXPECT_EQ(run("scan_mail_store --home /nowhere someone INBOX", errorsOnly).printed,
              "There is no mail index that can be read.\n");
    EXPECT_EQ(
        run("scan_mail_store --home " + world.directories.home() + " someone INBOX", errorsOnly)
            .printed,
        "There is no such account and mailbox.\n");
}

}  // namespace
}  // namespace brindlet
