#include "sample/ImapInput.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brindlet::sample {
namespace {

using Event = ImapInput::Event;
using Strings = std::vector<std::string>;

/// Commands as they come; "+" where the client waits for a word, "!" where it is cut off.
Strings cut(std::string_view bytes, std::size_t step) {
    ImapInput input;
    Strings found;
    for (std::size_t at = 0; at < bytes.size(); at += step) {
        input.add(bytes.substr(at, step));
        for (Event event = input.next(); event != Event::none; event = input.next()) {
            if (event == Event::tooMuch) {
                found.emplace_back("!");
                return found;
            }
            found.push_back(event == Event::literal ? "+" : input.command());
        }
    }
    return found;
}

TEST(ImapInput, LinesAndLiteralsAreCutAlikeHoweverTheyCome) {
    const struct {
        std::string bytes;
        Strings commands;
    } rows[] = {
        {"", {}},
        {"a1 NOOP", {}},
        {"a1 NOOP\r\n", {"a1 NOOP"}},
        {"a1 NOOP\na2 NOOP\r\n", {"a1 NOOP", "a2 NOOP"}},
        {"\r\n", {""}},
        {"a1 LOGIN {3}\r\nabc {2}\r\nde\r\n", {"+", "+", "a1 LOGIN {3}\r\nabc {2}\r\nde"}},
        // The client goes on without being asked.
        {"a1 LOGIN {3+}\r\nabc x\r\n", {"a1 LOGIN {3+}\r\nabc x"}},
        // A literal may hold line ends, and what looks like another one.
        {"a1 X {7}\r\na\r\n{2}\n\r\n", {"+", "a1 X {7}\r\na\r\n{2}\n"}},
        {"a1 X {0}\r\n\r\n", {"+", "a1 X {0}\r\n"}},
        // No announcements.
        {"a1 X {}\r\n", {"a1 X {}"}},
        {"a1 X {-1}\r\n", {"a1 X {-1}"}},
        {"a1 X {1} \r\n", {"a1 X {1} "}},
        {"a1 X 1}\r\n", {"a1 X 1}"}},
        {"a1 X {99999999999}\r\n", {"!"}},
        {"a1 X {70000}\r\n", {"!"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.bytes);
        for (const std::size_t step : {std::size_t{1}, std::size_t{2}, row.bytes.size() + 1})
            EXPECT_EQ(cut(row.bytes, step), row.commands) << "in pieces of " << step;
    }
}

TEST(ImapInput, AnEndlessLineIsCutOff) {
    EXPECT_EQ(cut(std::string(70'000, 'x'), 1'000), Strings{"!"});
    EXPECT_EQ(cut(std::string(60'000, 'x') + '\n', 1'000), Strings{std::string(60'000, 'x')});
}

}  // namespace
}  // namespace brindlet::sample
