#include "models/server/ServedScan.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "doubles/HttpServer.h"
#include "models/server/ChatUrl.h"
#include "models/server/ServerModel.h"

// Whole scans through the session, of mail that a server sorts.

namespace brindlet {
namespace {

using doubles::HttpServer;
using namespace std::chrono_literals;

HttpServer::Reply says(const std::string& category) {
    return HttpServer::answer(doubles::chatCompletion(R"({"category":")" + category + "\"}"));
}

ServerModel modelOf(const HttpServer& server, ServerLimits limits = {}) {
    return {chatUrl(server.url()).value(), "", limits};
}

TEST(ServedScan, TicksWhatTheServerCallsJunk) {
    HttpServer server([](const HttpServer::Request& request) {
        const bool odd = request.body.find("SUBJECT: Subject 7\\n") != std::string::npos;
        return says(odd ? "newsletterOrDigest" : "billOrPayment");
    });
    auto model = modelOf(server);
    ServedScan scan(model, 24);
    scan.start();
    scan.finish();
    ASSERT_EQ(scan.state->verdicts->size(), 24u);
    for (const auto& verdict : *scan.state->verdicts) {
        const bool odd = verdict.subject == "Subject 7";
        EXPECT_EQ(verdict.category, odd ? Category::newsletterOrDigest : Category::billOrPayment);
        EXPECT_EQ(scan.state->approved->contains(verdict.id), odd);
    }
    EXPECT_EQ(server.requests().size(), 24u);
    EXPECT_LE(server.mostInFlight(), 4);
}

TEST(ServedScan, WhateverIsWrongWithTheServerNoMailIsTicked) {
    const std::string junk = doubles::chatCompletion(R"({"category":"newsletterOrDigest"})");
    const std::vector<HttpServer::Reply> faults{
        HttpServer::answer(junk, "500 Internal Server Error"),
        HttpServer::answer(junk, "404 Not Found"),
        HttpServer::answer(junk.substr(0, junk.size() - 1)),
        says("Newsletter"),
        HttpServer::answer(doubles::chatCompletion("It is a newsletterOrDigest.")),
        {"", false, false},
        {"HTTP/1.1 200 OK\r\n", false, true},
    };
    for (const auto& fault : faults) {
        HttpServer server([&](const auto&) { return fault; });
        auto model = modelOf(server, {50ms, 1h});
        ServedScan scan(model, 12);
        scan.start();
        scan.finish();
        ASSERT_EQ(scan.state->verdicts->size(), 12u) << fault.bytes;
        for (const auto& verdict : *scan.state->verdicts)
            EXPECT_EQ(verdict.category, Category::cannotTell) << fault.bytes;
        EXPECT_TRUE(scan.state->approved->empty()) << fault.bytes;
        EXPECT_EQ(scan.state->scanError.get(), std::nullopt);
    }
}

TEST(ServedScan, AServerThatGoesAwayOnTheWayLeavesTheRestInPlace) {
    std::atomic<int> calls = 0;
    HttpServer server([&](const auto&) {
        return ++calls <= 10 ? says("newsletterOrDigest") : HttpServer::Reply{};
    });
    auto model = modelOf(server);
    ServedScan scan(model, 30);
    scan.start();
    scan.finish();
    EXPECT_EQ(scan.state->verdicts->size(), 30u);
    EXPECT_EQ(scan.state->approved->size(), 10u);
}

TEST(ServedScan, AStopHangsUpOnWhatIsStillBeingAnswered) {
    std::atomic<int> calls = 0;
    std::atomic<bool> stopped = false;
    HttpServer server([&](const auto&) {
        // Eight are answered, the next but one once Stop is pressed, the others never.
        const int call = ++calls;
        if (call <= 8) return says("billOrPayment");
        if (call == 9) {
            while (!stopped) std::this_thread::yield();
            return says("billOrPayment");
        }
        return HttpServer::Reply{"", false, true};
    });
    auto model = modelOf(server, {30s, 1h});
    ServedScan scan(model, 40);
    scan.start();
    ASSERT_TRUE(scan.world.mainQueue.pumpUntil([&] { return server.requests().size() == 12; }));
    scan.state->stopScan();
    stopped = true;
    scan.finish();
    EXPECT_TRUE(server.waitForHangUps(3));
    EXPECT_EQ(scan.state->verdicts->size(), 9u);
    EXPECT_EQ(server.requests().size(), 12u);
}

}  // namespace
}  // namespace brindlet
