#include "mover/BulkReport.h"

#include <gtest/gtest.h>

namespace brindlet {
namespace {

using enum Mover::Phase;

TEST(MoverPhase, IsSpelledAsInTheProgressFile) {
    EXPECT_EQ(rawValue(scan), "scan");
    EXPECT_EQ(rawValue(move), "move");
    EXPECT_EQ(allCases<Mover::Phase>(), (std::array{scan, move}));
}

TEST(BulkProgress, IsOneWholeRecord) {
    const struct {
        std::string_view record;
        std::optional<BulkProgress> progress;
    } rows[] = {
        {"scan|0|0", BulkProgress{scan, 0, 0}},
        {"move|10|40", BulkProgress{move, 10, 40}},
        {"move|+5|-1", BulkProgress{move, 5, -1}},
        // Empty fields do not count.
        {"move||3|9|", BulkProgress{move, 3, 9}},
        {"move|10", std::nullopt},
        {"move|10|40|1", std::nullopt},
        {"move|ten|40", std::nullopt},
        {"move|10|", std::nullopt},
        {"move|10|4x", std::nullopt},
        {"move|10|40\n", std::nullopt},
        {"move| 10|40", std::nullopt},
        {"Move|10|40", std::nullopt},
        {"mov", std::nullopt},
        {"", std::nullopt},
        {"move|10|4\xE2\x82", std::nullopt},
    };
    for (const auto& row : rows)
        EXPECT_EQ(parseBulkProgress(row.record), row.progress) << row.record;
}

TEST(BulkResult, IsTakenApartFieldByField) {
    const struct {
        std::string_view output;
        std::optional<BulkResult> result;
    } rows[] = {
        {"3|40|false|false\n", BulkResult{3, 40, false, false}},
        {"3|40|true|true", BulkResult{3, 40, true, true}},
        {"\r\n 3|-1|false|false \n", BulkResult{3, -1, false, false}},
        {"-2|40|true|false", BulkResult{-2, 40, true, false}},
        {"4|many|true|false", BulkResult{4, -1, true, false}},
        {"4|0|True|TRUE", BulkResult{4, 0, false, false}},
        {"4|0|true", BulkResult{4, 0, true, false}},
        // Empty fields do not count, so the third one moves up.
        {"4|0||true", BulkResult{4, 0, true, false}},
        {"|4|0", BulkResult{4, -1, false, false}},
        {"4|0|false|true|more", BulkResult{4, 0, false, true}},
        // Without all three fields nothing is known but the number.
        {"12", BulkResult{12, -1, false, false}},
        {"12|5", BulkResult{12, -1, false, false}},
        {"", std::nullopt},
        {" \n", std::nullopt},
        {"|||", std::nullopt},
        {"three|40|false|false", std::nullopt},
        {"3 |40|false|false", std::nullopt},
        {"99999999999999999999|1|false|false", std::nullopt},
    };
    for (const auto& row : rows) EXPECT_EQ(parseBulkResult(row.output), row.result) << row.output;
}

TEST(DoneIDs, AreTheLinesThatHoldSomething) {
    using IDs = std::set<std::string>;
    EXPECT_EQ(parseDoneIDs("a@x\nb@x\n"), (IDs{"a@x", "b@x"}));
    EXPECT_EQ(parseDoneIDs("b@x\na@x\nb@x"), (IDs{"a@x", "b@x"}));
    EXPECT_EQ(parseDoneIDs(" \n\t\n\n \u00a0 \na@x\r\n"), IDs{"a@x"});
    EXPECT_EQ(parseDoneIDs("a \"b\"|%c\tü@x"), IDs{"a \"b\"|%c\tü@x"});
    EXPECT_EQ(parseDoneIDs(""), IDs());
}

}  // namespace
}  // namespace brindlet
