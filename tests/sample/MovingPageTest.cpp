#include <gtest/gtest.h>

#include <set>

#include "base/Files.h"
#include "base/Json.h"
#include "base/Text.h"
#include "doubles/Doubles.h"
#include "platform/linux/FileUserDefaults.h"
#include "sample/MailSettings.h"

// What docs/moving.md shows must be what the programs take.

namespace brindlet::sample {
namespace {

std::string page() {
    return files::read(std::string(BRINDLET_FIXTURES) + "/../../docs/moving.md").value_or("");
}

/// The examples in JSON, in their order.
std::vector<std::string> examples() {
    constexpr std::string_view opening = "```json\n";
    std::vector<std::string> all;
    const std::string text = page();
    for (auto at = text.find(opening); at != std::string::npos; at = text.find(opening, at + 1)) {
        const auto start = at + opening.size();
        all.push_back(text.substr(start, text.find("```", start) - start));
    }
    return all;
}

TEST(MovingPage, TheUserDefaultIsWrittenAsTheProgramReadsIt) {
    const doubles::TemporaryDirectories directories;
    const std::string path = directories.home() + "/defaults.json";
    ASSERT_EQ(examples().size(), 2u);
    ASSERT_TRUE(files::write(path, examples()[0]));
    EXPECT_EQ(FileUserDefaults(path).boolean("allowUIMove"), true);
}

TEST(MovingPage, TheMailProgramTakesTheExampleOfItsSettings) {
    const doubles::TemporaryDirectories directories;
    ASSERT_EQ(examples().size(), 2u);
    ASSERT_TRUE(files::write(mailSettingsPath(directories.home()), examples()[1]));
    const auto settings = readMailSettings(directories.home());
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->behaviour.quitsAfterEvents, 200);
}

TEST(MovingPage, TellsEverySwitchOfTheMailProgramAndNoOther) {
    const doubles::TemporaryDirectories directories;
    MailSettings settings;
    settings.behaviour.quitsAfterEvents = 1;
    settings.behaviour.menuMovesAtMost = 1;
    ASSERT_TRUE(writeMailSettings(directories.home(), settings));
    std::set<std::string> known;
    JsonReader json(files::read(mailSettingsPath(directories.home())).value_or(""));
    json.object([&](std::string_view key) {
        if (key != "behaviour") return json.skip();
        json.object([&](std::string_view name) {
            known.emplace(name);
            json.skip();
        });
    });
    ASSERT_TRUE(json.finish());

    constexpr std::string_view rowStart = "| `";
    std::set<std::string> told;
    std::string text = page();
    text.erase(0, text.find("stand under `behaviour`"));
    for (const auto line : nonEmptyPieces(text, '\n'))
        if (line.starts_with(rowStart))
            told.emplace(
                line.substr(rowStart.size(), line.find('`', rowStart.size()) - rowStart.size()));
    EXPECT_EQ(told, known);
}

}  // namespace
}  // namespace brindlet::sample
