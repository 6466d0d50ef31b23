#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/Files.h"
#include "classify/Classifier.h"
#include "doubles/Doubles.h"
#include "models/server/ChatRequest.h"
#include "models/server/ChatUrl.h"
#include "platform/linux/FileUserDefaults.h"

// What docs/model-server.md shows must be what the program takes and sends.

namespace brindlet {
namespace {

std::string page() {
    return files::read(std::string(BRINDLET_FIXTURES) + "/../../docs/model-server.md").value_or("");
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

/// The same JSON without the white space between its parts.
std::string unfolded(std::string_view json) {
    std::string plain;
    bool quoted = false;
    for (std::size_t i = 0; i < json.size(); ++i) {
        const char c = json[i];
        if (c == '"' && (i == 0 || json[i - 1] != '\\')) quoted = !quoted;
        if (quoted || (c != ' ' && c != '\n')) plain += c;
    }
    return plain;
}

TEST(ModelServerPage, TheUserDefaultsAreWrittenAsTheProgramReadsThem) {
    const doubles::TemporaryDirectories directories;
    const std::string path = directories.home() + "/defaults.json";
    ASSERT_EQ(examples().size(), 2u);
    ASSERT_TRUE(files::write(path, examples()[0]));
    const FileUserDefaults defaults(path);
    EXPECT_EQ(defaults.string("model.server"), "http://localhost:11434");
    EXPECT_EQ(defaults.string("model.server.name"), "qwen2.5:7b-instruct");
}

TEST(ModelServerPage, TheRequestIsTheOneThatIsSent) {
    ASSERT_EQ(examples().size(), 2u);
    EXPECT_EQ(unfolded(examples()[1]),
              chatRequest("qwen2.5:7b-instruct",
                          "Label what an email is. Pick the single category that fits best.",
                          Classifier::labelSchema(),
                          Classifier::prompt("Norden <billing@norden.example>", "Your March bill",
                                             "Amount due: $73.11"),
                          {}));
    EXPECT_TRUE(Classifier::instructions().starts_with(
        "Label what an email is. Pick the single category that fits best.\n"));
}

TEST(ModelServerPage, EveryNameInItsTableLeadsWhereItSays) {
    int rows = 0;
    const std::string text = page();
    for (auto at = text.find("| `http://"); at != std::string::npos;
         at = text.find("| `http://", at + 1)) {
        const std::string row = text.substr(at, text.find('\n', at) - at);
        std::vector<std::string> quoted;
        for (auto tick = row.find('`'); tick != std::string::npos;) {
            const auto end = row.find('`', tick + 1);
            quoted.push_back(row.substr(tick + 1, end - tick - 1));
            tick = row.find('`', end + 1);
        }
        if (quoted.size() != 2) continue;
        EXPECT_EQ(chatUrl(quoted[0]), quoted[1]) << row;
        ++rows;
    }
    EXPECT_EQ(rows, 4);
}

}  // namespace
}  // namespace brindlet
