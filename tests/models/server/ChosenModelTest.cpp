#include "models/ChosenModel.h"

#include <gtest/gtest.h>

#include "classify/Classifier.h"
#include "doubles/Doubles.h"
#include "doubles/HttpServer.h"
#include "models/embedded/EmbeddedModel.h"
#include "models/server/ServerModel.h"

namespace brindlet {
namespace {

using doubles::HttpServer;

bool isInside(const ChosenModel& chosen) {
    return dynamic_cast<const EmbeddedModel*>(chosen.model.get()) != nullptr;
}

TEST(ChosenModel, IsTheOneInsideUnlessAServerIsNamed) {
    doubles::MemoryDefaults defaults;
    EXPECT_TRUE(isInside(chosenModel(defaults)));
    EXPECT_EQ(chosenModel(defaults).problem, "");
    defaults.setString("model.server", "");
    defaults.setString("model.server.name", "qwen");
    EXPECT_TRUE(isInside(chosenModel(defaults)));
    EXPECT_EQ(chosenModel(defaults).problem, "");
    defaults.setInteger("model.server", 8080);
    EXPECT_TRUE(isInside(chosenModel(defaults)));
}

TEST(ChosenModel, IsTheOneInsideWhenTheServerIsNotThisMachine) {
    doubles::MemoryDefaults defaults;
    defaults.setString("model.server", "https://127.0.0.1");
    const auto chosen = chosenModel(defaults);
    EXPECT_TRUE(isInside(chosen));
    EXPECT_EQ(chosen.problem,
              "The model server \"https://127.0.0.1\" is not asked, and the model inside answers: "
              "a server is named as in http://127.0.0.1:8080, and only this machine counts.");
}

TEST(ChosenModel, AsksTheServerForTheModelNamed) {
    HttpServer server([](const auto&) {
        return HttpServer::answer(doubles::chatCompletion(R"({"category":"billOrPayment"})"));
    });
    doubles::MemoryDefaults defaults;
    defaults.setString("model.server", "http://localhost:" + std::to_string(server.port()) + "/v1");
    defaults.setString("model.server.name", "qwen3:4b");
    const auto chosen = chosenModel(defaults);
    EXPECT_EQ(chosen.problem, "");
    const Classifier classifier(*chosen.model);
    EXPECT_EQ(classifier.classify("a@b.example", "Your bill", ""), Category::billOrPayment);
    ASSERT_EQ(server.requests().size(), 1u);
    EXPECT_NE(server.requests()[0].body.find(R"("model":"qwen3:4b")"), std::string::npos);
}

TEST(ChosenModel, AServerThatIsDownStillCountsAsAModel) {
    doubles::MemoryDefaults defaults;
    defaults.setString("model.server", "http://127.0.0.1:1");
    const auto chosen = chosenModel(defaults);
    const Classifier classifier(*chosen.model);
    EXPECT_EQ(classifier.availabilityProblem(), "");
    EXPECT_EQ(classifier.classify("a@b.example", "Your bill", ""), Category::cannotTell);
    EXPECT_EQ(classifier.event("Your bill"), std::nullopt);
}

}  // namespace
}  // namespace brindlet
