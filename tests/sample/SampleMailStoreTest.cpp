#include "sample/SampleMailStore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>

#include "SampleHome.h"
#include "base/Files.h"
#include "base/Json.h"
#include "sample/EmlxWriter.h"
#include "sample/Random.h"

namespace brindlet::sample {
namespace {

std::uint64_t hashOf(std::string_view bytes) {
    std::uint64_t hash = bytes.size();
    for (const char byte : bytes) hash = mixed(hash, static_cast<unsigned char>(byte));
    return hash;
}

/// Every file below the folder but the databases, by its relative path.
std::map<std::string, std::uint64_t> filesBelow(const std::string& folder) {
    std::map<std::string, std::uint64_t> hashes;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const std::string path = entry.path().string().substr(folder.size());
        const bool database = path.find("/MailData/") != std::string::npos ||
                              path.find("/Library/Accounts/") != std::string::npos;
        if (entry.is_regular_file() && !database)
            hashes[path] = hashOf(files::read(entry.path().string()).value_or(""));
    }
    return hashes;
}

TEST(SampleMailStore, TheSameOptionsMakeTheSameBytes) {
    SampleOptions options;
    options.messages = 300;
    const SampleHome one(options);
    const SampleHome other(options);
    EXPECT_EQ(one.outcome.problem, "");
    const auto hashes = filesBelow(one.home());
    EXPECT_GT(hashes.size(), 300u);
    EXPECT_EQ(hashes, filesBelow(other.home()));
    options.seed = 2;
    EXPECT_NE(hashes, filesBelow(SampleHome(options).home()));
}

TEST(SampleMailStore, AFolderWithALibraryIsLeftAlone) {
    SampleHome home({.messages = 5});
    const auto before = filesBelow(home.home());
    const auto again = makeMailStore(home.home(), {.messages = 7}, {});
    EXPECT_EQ(again.problem,
              "There is a Library folder in " + home.home() + " already; nothing was written.");
    EXPECT_TRUE(again.facts.messages.empty());
    EXPECT_EQ(filesBelow(home.home()), before);
}

TEST(SampleMailStore, AFolderThatCannotBeMadeIsAProblem) {
    const doubles::TemporaryDirectories directories;
    ASSERT_TRUE(files::write(directories.home() + "/file", "x"));
    EXPECT_EQ(makeMailStore(directories.home() + "/file", {.messages = 5}, {}).problem,
              "The folders could not be made.");
}

TEST(SampleMailStore, SmallSamplesAreWholeToo) {
    for (const std::int64_t count : {1, 2, 10, 37}) {
        const SampleHome home({.messages = count});
        EXPECT_EQ(home.outcome.problem, "") << count;
        EXPECT_EQ(home.outcome.facts.messages.size(), static_cast<std::size_t>(count));
        EXPECT_EQ(home.outcome.facts.accounts.front().folders.front().count, (count + 1) / 2);
    }
}

TEST(SampleMailStore, ProgressIsToldAndEndsBelowTheWhole) {
    const doubles::TemporaryDirectories directories;
    std::vector<std::size_t> steps;
    makeMailStore(directories.home(), {.messages = 1'200},
                  [&](std::size_t written, std::size_t all) {
                      EXPECT_EQ(all, 1'200u);
                      steps.push_back(written);
                  });
    EXPECT_EQ(steps, (std::vector<std::size_t>{500, 1'000}));
}

TEST(SampleMailStore, TheFactsStandBesideTheLibraryToo) {
    const SampleHome home({.messages = 20});
    JsonReader json(files::read(home.home() + "/sample-facts.json").value_or(""));
    std::vector<std::int64_t> ids;
    std::string firstAccount;
    json.object([&](std::string_view key) {
        if (key == "messages") {
            json.array([&] {
                json.object([&](std::string_view field) {
                    if (field == "id")
                        ids.push_back(json.integer());
                    else
                        json.skip();
                });
            });
        } else if (key == "accounts") {
            json.array([&] {
                json.object([&](std::string_view field) {
                    if (field == "id" && firstAccount.empty())
                        firstAccount = json.string();
                    else
                        json.skip();
                });
            });
        } else {
            json.skip();
        }
    });
    EXPECT_TRUE(json.finish());
    std::vector<std::int64_t> expected;
    for (const auto& message : home.outcome.facts.messages) expected.push_back(message.id);
    EXPECT_EQ(ids, expected);
    EXPECT_EQ(firstAccount, home.outcome.facts.accounts.front().id);
}

TEST(SampleMailStore, SizesFollowRealMail) {
    std::vector<std::int64_t> sizes;
    double sum = 0;
    for (const auto& message : SampleHome::shared().outcome.facts.messages) {
        if (!message.readable) continue;
        sizes.push_back(message.fileSize);
        sum += static_cast<double>(message.fileSize);
    }
    std::sort(sizes.begin(), sizes.end());
    const auto count = static_cast<double>(sizes.size());
    EXPECT_NEAR(static_cast<double>(sizes[sizes.size() / 2]), 14'000, 1'000);
    EXPECT_NEAR(sum / count, 28'000, 2'000);
    const auto large =
        std::count_if(sizes.begin(), sizes.end(), [](std::int64_t size) { return size > 120'000; });
    EXPECT_NEAR(static_cast<double>(large) / count, 0.03, 0.006);
}

TEST(SampleMailStore, ShapesFollowRealMail) {
    SampleHome& home = SampleHome::shared();
    int all = 0;
    int withHtml = 0;
    int htmlAlone = 0;
    int partial = 0;
    int rawBytes = 0;
    for (const auto& message : home.outcome.facts.messages) {
        if (!message.readable) continue;
        const std::string file = files::read(home.home() + '/' + *message.path).value_or("");
        const std::string_view mail = messageInEmlx(file);
        ASSERT_FALSE(mail.empty()) << *message.path;
        ASSERT_EQ(static_cast<std::int64_t>(file.size()), message.fileSize);
        const bool html = mail.find("Content-Type: text/html") != std::string_view::npos;
        const bool plain = mail.find("Content-Type: text/plain") != std::string_view::npos;
        ++all;
        withHtml += html ? 1 : 0;
        htmlAlone += html && !plain ? 1 : 0;
        partial += message.path->ends_with(".partial.emlx") ? 1 : 0;
        rawBytes += std::any_of(mail.begin(), mail.end(),
                                [](char c) { return static_cast<unsigned char>(c) > 127; })
                        ? 1
                        : 0;
    }
    const auto share = [&](int count) { return static_cast<double>(count) / all; };
    EXPECT_NEAR(share(withHtml), 0.667, 0.03);
    EXPECT_NEAR(share(htmlAlone), 0.2, 0.03);
    EXPECT_NEAR(share(partial), 0.03, 0.01);
    EXPECT_NEAR(share(rawBytes), 0.1, 0.025);
}

TEST(SampleMailStore, EveryTroubleAndEveryCategoryTurnsUp) {
    std::set<std::string> troubles;
    std::set<std::string> categories;
    for (const auto& message : SampleHome::shared().outcome.facts.messages) {
        troubles.insert(message.trouble);
        categories.insert(message.category);
    }
    EXPECT_EQ(troubles.size(), EnumInfo<Trouble>::all.size());
    EXPECT_EQ(categories.size(), 10u);
}

TEST(SampleMailStore, NearlyHalfOfTheInboxIsOfTheLastThirtyDays) {
    const SampleFacts& facts = SampleHome::shared().outcome.facts;
    const std::int64_t inbox = facts.accounts.front().folders.front().id;
    int all = 0;
    int late = 0;
    for (const auto& message : facts.messages) {
        EXPECT_LE(message.dateSent, facts.newest);
        if (message.mailbox != inbox) continue;
        ++all;
        late += message.dateSent >= facts.newest - 30 * 86'400 ? 1 : 0;
    }
    EXPECT_EQ(all, 1'000);
    EXPECT_NEAR(late, 460, 60);
}

}  // namespace
}  // namespace brindlet::sample
