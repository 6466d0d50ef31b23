#include "models/server/ServerModel.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/Task.h"
#include "base/ThreadSafety.h"
#include "classify/Classifier.h"
#include "doubles/HttpServer.h"
#include "models/server/ChatUrl.h"
#include "models/server/LoopbackPost.h"

namespace brindlet {
namespace {

using doubles::HttpServer;
using namespace std::chrono_literals;

const std::string bill = doubles::chatCompletion(R"({"category":"billOrPayment"})");

HttpServer::Script always(HttpServer::Reply reply) {
    return [reply = std::move(reply)](const HttpServer::Request&) { return reply; };
}

std::optional<LanguageModel::Answer> ask(LanguageModel& model, const CancelToken& abandoned = {}) {
    ModelOptions options;
    options.abandoned = abandoned;
    return model.respond(std::string(Classifier::instructions()), Classifier::labelSchema(),
                         Classifier::prompt("a@b.example", "Your bill", "Amount due"), options);
}

std::unique_ptr<ServerModel> modelOf(const HttpServer& server, ServerLimits limits = {}) {
    return std::make_unique<ServerModel>(chatUrl(server.url()).value(), "", limits);
}

const std::optional<LanguageModel::Answer> saysBill =
    LanguageModel::Answer{{"category", "billOrPayment"}};

TEST(ServerModel, PostsTheQuestionAndTakesTheAnswer) {
    for (const std::string address : {"127.0.0.1", "::1"}) {
        HttpServer server(always(HttpServer::answer(bill)), address);
        EXPECT_EQ(ask(*modelOf(server)), saysBill) << address;
        ASSERT_EQ(server.requests().size(), 1u);
        const auto request = server.requests()[0];
        EXPECT_TRUE(request.head.starts_with("POST /v1/chat/completions HTTP/1.1\r\n"))
            << request.head;
        EXPECT_NE(request.head.find("\r\nContent-Type: application/json\r\n"), std::string::npos);
        EXPECT_NE(request.body.find("SUBJECT: Your bill"), std::string::npos);
    }
}

TEST(ServerModel, EveryRequestBeginsWithTheSameBytes) {
    HttpServer server(always(HttpServer::answer(bill)));
    const auto model = modelOf(server);
    const Classifier classifier(*model);
    for (int i = 0; i < 20; ++i)
        classifier.classify("s" + std::to_string(i) + "@b.example", "Hello", std::string(500, 'x'));
    const auto requests = server.requests();
    ASSERT_EQ(requests.size(), 20u);
    const auto prefix = requests[0].body.find("FROM: s0@");
    ASSERT_GT(prefix, Classifier::instructions().size());
    ASSERT_NE(prefix, std::string::npos);
    for (const auto& request : requests)
        EXPECT_EQ(request.body.substr(0, prefix), requests[0].body.substr(0, prefix));
}

TEST(ServerModel, AnswersWhatASubjectSaysHappened) {
    HttpServer server(always(HttpServer::answer(
        doubles::chatCompletion(R"({"action":"uploaded","object":"a video"})"))));
    const auto model = modelOf(server);
    EXPECT_EQ(Classifier(*model).event("Kestrel just uploaded a video"),
              (Classifier::Event{"uploa", {"video"}}));
    ASSERT_EQ(server.requests().size(), 1u);
    EXPECT_NE(server.requests()[0].body.find(R"({"role":"user","content":"Kestrel just uploaded)"),
              std::string::npos);
}

TEST(ServerModel, TakesAnAnswerHoweverItIsCutIntoPieces) {
    const std::string chunks = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n";
    std::string small;
    for (const char c : bill) small += std::string("1\r\n") + c + "\r\n";
    const std::vector<std::string> answers{
        chunks + small + "0\r\n\r\n",
        chunks + small + "0\r\nTrailer: x\r\n\r\n",
        "HTTP/1.1 200 OK\r\n\r\n" + bill,
        "HTTP/1.0 200 OK\r\nConnection: close\r\n\r\n" + bill,
        "HTTP/1.1 100 Continue\r\n\r\n" + HttpServer::answer(bill).bytes,
        "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(bill.size() + 500'000) + "\r\n\r\n" +
            std::string(500'000, ' ') + bill,
    };
    for (const auto& bytes : answers)
        for (const bool dribbles : {false, true}) {
            if (dribbles && bytes.size() > 100'000) continue;
            HttpServer server(always({bytes, dribbles, false}));
            EXPECT_EQ(ask(*modelOf(server)), saysBill) << bytes.substr(0, 80) << dribbles;
        }
}

TEST(ServerModel, NobodyThereFailsTheCall) {
    std::string url;
    {
        const HttpServer server(always({}));
        url = chatUrl(server.url()).value();
    }
    ServerModel model(url, "");
    EXPECT_EQ(ask(model), std::nullopt);
    EXPECT_EQ(model.availability(), ModelAvailability::available);
}

TEST(ServerModel, AnyStatusBut200FailsTheCallAndNothingIsRepeated) {
    for (const std::string status : {"201 Created",
                                     "202 Accepted",
                                     "203 Other",
                                     "204 No Content",
                                     "206 Partial Content",
                                     "300 Multiple Choices",
                                     "304 Not Modified",
                                     "400 Bad Request",
                                     "401 Unauthorized",
                                     "403 Forbidden",
                                     "404 Not Found",
                                     "407 Proxy Authentication Required",
                                     "408 Request Timeout",
                                     "413 Too Large",
                                     "417 Expectation Failed",
                                     "421 Misdirected",
                                     "426 Upgrade Required",
                                     "429 Too Many Requests",
                                     "500 Internal Server Error",
                                     "503 Service Unavailable",
                                     "599 Odd",
                                     "999 Odder"}) {
        HttpServer server(always(HttpServer::answer(
            bill, status + "\r\nRetry-After: 0\r\n" + "WWW-Authenticate: Basic realm=\"x\"")));
        EXPECT_EQ(ask(*modelOf(server)), std::nullopt) << status;
        EXPECT_EQ(server.connections(), 1) << status;
    }
}

TEST(ServerModel, WhatIsNotHttpFailsTheCall) {
    for (const std::string& bytes :
         {std::string(), std::string("\r\n\r\n"), bill, std::string("SSH-2.0-OpenSSH_9.2\r\n"),
          std::string("HTTP/1.1\r\n\r\n") + bill, std::string("HTTP/1.1 200 OK\n") + bill,
          std::string("HTTP/1.1 200 OK\r\nContent-Length: -5\r\n\r\n") + bill,
          std::string("HTTP/1.1 200 OK\r\nContent-Length: 99999\r\n\r\n") + bill,
          std::string("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\n") + bill,
          std::string("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5\r\n{}"),
          std::string("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n"),
          std::string("HTTP/1.1 101 Switching Protocols\r\nUpgrade: h2c\r\n\r\n") + bill,
          std::string(3000, '\0')}) {
        HttpServer server(always({bytes, false, false}));
        EXPECT_EQ(ask(*modelOf(server)), std::nullopt) << bytes.substr(0, 80);
        EXPECT_EQ(server.connections(), 1) << bytes.substr(0, 80);
    }
}

TEST(ServerModel, HangingUpAtAnyByteFailsTheCall) {
    const std::string whole = HttpServer::answer(bill).bytes;
    std::atomic<std::size_t> length = 0;
    HttpServer server([&](const auto&) {
        return HttpServer::Reply{whole.substr(0, length), false, false};
    });
    const auto model = modelOf(server);
    for (; length < whole.size(); ++length)
        EXPECT_EQ(ask(*model), std::nullopt) << whole.substr(0, length);
    EXPECT_EQ(ask(*model), saysBill);
    EXPECT_EQ(server.connections(), static_cast<int>(whole.size()) + 1);
}

TEST(ServerModel, HangingUpOnTheQuestionFailsTheCall) {
    HttpServer server(always(HttpServer::answer(bill)));
    const auto model = modelOf(server);
    int calls = 0;
    for (const std::size_t bytes : {0U, 1U, 20U, 150U, 1000U, 4000U}) {
        server.hangUpAfter(bytes);
        EXPECT_EQ(ask(*model), std::nullopt) << bytes;
        EXPECT_EQ(server.connections(), ++calls) << bytes;
    }
}

TEST(ServerModel, AnAnswerPastItsBoundIsNotHeardToItsEnd) {
    constexpr std::size_t megabyte = 1024 * 1024;
    const std::string blanks(megabyte, ' ');
    std::string headers;
    while (headers.size() < 2 * megabyte)
        headers += "X-Padding: " + std::string(8000, 'x') + "\r\n";
    const std::vector<std::string> answers{
        HttpServer::answer(blanks + bill).bytes,
        "HTTP/1.1 200 OK\r\n\r\n" + blanks + bill,
        "HTTP/1.1 200 OK\r\n" + headers + "\r\n" + bill,
        "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n200000\r\n" + blanks + blanks,
    };
    for (const auto& bytes : answers) {
        // It does not hang up: the client must.
        HttpServer server(always({bytes, false, true}));
        EXPECT_EQ(postOnLoopback(server.url() + "/", "{}", 5s, {}).outcome,
                  LoopbackReply::Outcome::failed)
            << bytes.substr(0, 60);
        EXPECT_TRUE(server.waitForHangUps(1));
    }
}

TEST(ServerModel, AServerThatNeverEndsFailsTheCallWhenTheTimeIsUp) {
    const std::string whole = HttpServer::answer(bill).bytes;
    for (const std::size_t length : {std::size_t{0}, std::size_t{10}, whole.size() - 1}) {
        HttpServer server(always({whole.substr(0, length), false, true}));
        EXPECT_EQ(ask(*modelOf(server, {50ms, 1h})), std::nullopt) << length;
        EXPECT_TRUE(server.waitForHangUps(1));
    }
}

TEST(ServerModel, AfterFourCallsWithoutAnAnswerAServerIsLeftAlone) {
    HttpServer server(always({"", false, true}));
    const auto model = modelOf(server, {50ms, 1h});
    for (int call = 0; call < 10; ++call) EXPECT_EQ(ask(*model), std::nullopt);
    EXPECT_EQ(server.connections(), 4);
}

TEST(ServerModel, AServerThatWasLeftAloneIsAskedAgainLater) {
    std::atomic<bool> well = false;
    HttpServer server([&](const auto&) {
        return well ? HttpServer::answer(bill) : HttpServer::Reply{"", false, true};
    });
    const auto model = modelOf(server, {50ms, 0ms});
    for (int call = 0; call < 5; ++call) EXPECT_EQ(ask(*model), std::nullopt);
    well = true;
    EXPECT_EQ(ask(*model), saysBill);
    EXPECT_EQ(server.connections(), 6);
}

TEST(ServerModel, OnlyCallsInARowLeaveAServerAlone) {
    std::atomic<int> calls = 0;
    HttpServer server([&](const auto&) {
        return ++calls % 4 == 0 ? HttpServer::answer("no", "500 No")
                                : HttpServer::Reply{"", false, true};
    });
    const auto model = modelOf(server, {50ms, 1h});
    for (int call = 0; call < 12; ++call) EXPECT_EQ(ask(*model), std::nullopt);
    EXPECT_EQ(server.connections(), 12);
}

TEST(ServerModel, BeingAbandonedEndsTheCallAndHangsUp) {
    HttpServer server(always({"HTTP/1.1 200 OK\r\n", false, true}));
    const auto model = modelOf(server, {30s, 1h});
    const CancelToken abandoned;
    TaskGroup<std::optional<LanguageModel::Answer>> calls(4);
    for (int i = 0; i < 4; ++i) calls.add([&] { return ask(*model, abandoned); });
    ASSERT_TRUE(server.waitForRequests(4));
    abandoned.cancel();
    EXPECT_TRUE(server.waitForHangUps(4));
    for (int i = 0; i < 4; ++i) EXPECT_EQ(calls.next().value(), std::nullopt);
    // It says nothing about the server, which is asked as before.
    EXPECT_EQ(ask(*model, abandoned), std::nullopt);
    EXPECT_EQ(server.connections(), 4);
}

// Left to itself the library looks up five times a second at best.
TEST(ServerModel, BeingAbandonedIsNoticedAtOnce) {
    HttpServer server(always({"", false, true}));
    const auto model = modelOf(server, {30s, 1h});
    const auto start = std::chrono::steady_clock::now();
    for (int call = 1; call <= 20; ++call) {
        const CancelToken abandoned;
        TaskGroup<std::optional<LanguageModel::Answer>> calls(1);
        calls.add([&] { return ask(*model, abandoned); });
        ASSERT_TRUE(server.waitForRequests(call));
        abandoned.cancel();
        EXPECT_EQ(calls.next().value(), std::nullopt);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, 2s);
}

TEST(ServerModel, FourCallsAreWithTheServerAtOnce) {
    Mutex mutex;
    Condition changed;
    int arrived = 0;
    // Nobody is answered before all four have asked.
    HttpServer server([&](const auto&) {
        Lock lock(mutex);
        ++arrived;
        changed.notifyAll();
        while (arrived < 4) changed.wait(mutex);
        return HttpServer::answer(bill);
    });
    const auto model = modelOf(server);
    TaskGroup<std::optional<LanguageModel::Answer>> calls(4);
    for (int i = 0; i < 4; ++i) calls.add([&] { return ask(*model); });
    for (int i = 0; i < 4; ++i) EXPECT_EQ(calls.next().value(), saysBill);
    EXPECT_EQ(server.mostInFlight(), 4);
}

}  // namespace
}  // namespace brindlet
