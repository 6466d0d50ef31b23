#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "base/Files.h"
#include "doubles/Doubles.h"
#include "doubles/HttpServer.h"
#include "tools/RunTool.h"

namespace brindlet {
namespace {

class EvaluateTool : public testing::Test {
  protected:
    std::string file(const std::string& name, const std::string& content) {
        const auto path = directories.root() + "/" + name;
        EXPECT_TRUE(files::write(path, content));
        return path;
    }
    doubles::TemporaryDirectories directories;
    const std::string bounce = file(
        "bounce.jsonl",
        R"({"id":"b","from":"d@x.example","subject":"Undeliverable: Hi","body":"","category":"deliveryFailureBounce"})"
        "\n");
};

TEST_F(EvaluateTool, TellsADamagedLine) {
    const auto path = file("bad.jsonl", "\n{\"from\":1}\n");
    const auto outcome = run("evaluate_model " + path, errorsOnly);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.printed, path + ": Line 2: \"from\" is no text.\n");
}

TEST_F(EvaluateTool, TellsAFileThatIsNotThere) {
    const auto outcome = run("evaluate_model /nowhere.jsonl", errorsOnly);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.printed, "/nowhere.jsonl cannot be read.\n");
}

TEST_F(EvaluateTool, PrintsAnswersAsLines) {
    const auto outcome = run("evaluate_model --jsonl " + bounce);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.printed,
              "{\"id\":\"b\",\"category\":\"deliveryFailureBounce\",\"junk\":true,"
              "\"vetoed\":false}\n");
}

TEST_F(EvaluateTool, KnowsThePersonsOwnAddress) {
    const auto outcome = run("evaluate_model --jsonl --own D@x.example " + bounce);
    EXPECT_NE(outcome.printed.find("\"vetoed\":true"), std::string::npos) << outcome.printed;
    const auto raw = run("evaluate_model --raw --jsonl --own D@x.example " + bounce);
    EXPECT_NE(raw.printed.find("\"vetoed\":false"), std::string::npos) << raw.printed;
}

TEST_F(EvaluateTool, WritesItsTablesIntoAPageAndNoticesOtherNumbers) {
    const auto page = file("page.md", "Top\n<!-- evaluation -->\n<!-- /evaluation -->\n");
    EXPECT_EQ(run("evaluate_model --compare " + page + " " + bounce).status, 1);
    EXPECT_EQ(run("evaluate_model --update " + page + " " + bounce).status, 0);
    const auto tables = run("evaluate_model " + bounce).printed;
    EXPECT_EQ(files::read(page), "Top\n<!-- evaluation -->\n" + tables + "<!-- /evaluation -->\n");
    EXPECT_EQ(run("evaluate_model --compare " + page + " " + bounce).status, 0);
}

TEST_F(EvaluateTool, JudgesAModelServer) {
    doubles::HttpServer server([](const auto&) {
        return doubles::HttpServer::answer(
            doubles::chatCompletion(R"({"category":"billOrPayment"})"));
    });
    // On one thread: threads that still end at the exit look like leaks to a sanitizer.
    const auto outcome =
        run("evaluate_model --raw --jsonl --model-server " + server.url() + " " + bounce);
    EXPECT_EQ(outcome.printed,
              "{\"id\":\"b\",\"category\":\"billOrPayment\",\"junk\":false,"
              "\"vetoed\":false}\n");
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST_F(EvaluateTool, JudgesNoOtherModelThanTheOneThatWasNamed) {
    const auto outcome =
        run("evaluate_model --model-server http://192.0.2.1:8080 " + bounce, errorsOnly);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.printed.starts_with("The model server \"http://192.0.2.1:8080\""))
        << outcome.printed;
    EXPECT_EQ(run("evaluate_model --guesses --model-server http://127.0.0.1:1 " + bounce).status,
              1);
}

TEST_F(EvaluateTool, IsSkippedWithoutAFile) {
    ::unsetenv("BRINDLET_CORPUS");
    const auto outcome = run("evaluate_model");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.printed, "skipped: BRINDLET_CORPUS is not set\n");
}

TEST_F(EvaluateTool, TakesOneFile) {
    EXPECT_EQ(run("evaluate_model one two").status, 2);
    EXPECT_EQ(run("evaluate_model --colour one").status, 2);
}

}  // namespace
}  // namespace brindlet
