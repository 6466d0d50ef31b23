#include <gtest/gtest.h>

#include <set>

#include "base/Files.h"
#include "base/Json.h"
#include "base/Text.h"
#include "doubles/Doubles.h"
#include "sample/GmailSettings.h"
#include "sample/SampleAccounts.h"

// What docs/gmail.md shows must be what the simulated server takes.

namespace brindlet::sample {
namespace {

std::string page(const std::string& name = "docs/gmail.md") {
    return files::read(std::string(BRINDLET_FIXTURES) + "/../../" + name).value_or("");
}

std::string gmailAddress() {
    for (const auto& account : sampleAccounts())
        if (account.gmail) return std::string(account.address);
    return {};
}

TEST(GmailPage, TheServerTakesTheExampleOfItsSettings) {
    constexpr std::string_view opening = "```json\n";
    const std::string text = page();
    const auto start = text.find(opening) + opening.size();
    ASSERT_GE(start, opening.size()) << "no example";
    const doubles::TemporaryDirectories directories;
    ASSERT_TRUE(files::write(gmailSettingsPath(directories.home()),
                             text.substr(start, text.find("```", start) - start)));
    const auto settings = readGmailSettings(directories.home());
    ASSERT_TRUE(settings);
    EXPECT_TRUE(isAppPassword(*settings, gmailAddress(), "abcdefghijklmnop"));
    EXPECT_EQ(settings->faults.delay, 0.5);
    EXPECT_EQ(settings->faults.no, 3);
    EXPECT_EQ(settings->faults.certificate, GmailCertificate::expired);
}

TEST(GmailPage, TellsEverySwitchOfTheServerAndNoOther) {
    const doubles::TemporaryDirectories directories;
    GmailSettings settings;
    settings.faults.closesAfterSent = 1;
    settings.faults.closesAfterReceived = 1;
    settings.faults.bye = 1;
    ASSERT_TRUE(writeGmailSettings(directories.home(), settings));
    std::set<std::string> known;
    JsonReader json(files::read(gmailSettingsPath(directories.home())).value_or(""));
    json.object([&](std::string_view key) {
        if (key != "faults") return json.skip();
        json.object([&](std::string_view name) {
            known.emplace(name);
            json.skip();
        });
    });
    ASSERT_TRUE(json.finish());

    constexpr std::string_view rowStart = "| `";
    std::set<std::string> told;
    std::string text = page();
    text.erase(0, text.find("stand under `faults`"));
    for (const auto line : nonEmptyPieces(text, '\n'))
        if (line.starts_with(rowStart))
            told.emplace(
                line.substr(rowStart.size(), line.find('`', rowStart.size()) - rowStart.size()));
    EXPECT_EQ(told, known);
}

TEST(GmailPage, TellsEveryCertificateButTheGoodOne) {
    const std::string text = page();
    for (const auto& [certificate, word] : EnumInfo<GmailCertificate>::all) {
        if (certificate == GmailCertificate::good) continue;
        EXPECT_NE(text.find("`\"" + std::string(word) + "\"`"), std::string::npos) << word;
    }
}

TEST(GmailPage, AndTheReadMeNameTheAddressOfTheSample) {
    for (const char* name : {"docs/gmail.md", "README.md"})
        EXPECT_NE(page(name).find(gmailAddress()), std::string::npos) << name;
}

}  // namespace
}  // namespace brindlet::sample
