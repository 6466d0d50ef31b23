#include "app/demo/Sights.h"

#include <gtest/gtest.h>

#include <QString>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "base/Files.h"

namespace brindlet::demo {
namespace {

/// What a tour has left of each sight, by its name.
std::map<std::string, std::vector<std::string>> listOf(const std::string& folder) {
    std::map<std::string, std::vector<std::string>> list;
    std::istringstream lines(files::read(folder + "/sights.txt").value_or(""));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        std::string name, picture, what;
        std::getline(fields, name, '\t');
        std::getline(fields, picture, '\t');
        std::getline(fields, what);
        list[name] = {picture, what};
    }
    return list;
}

class TourSights : public testing::TestWithParam<const char*> {
  protected:
    const std::string folder_ = std::string(BRINDLET_TOURS) + '/' + GetParam();
};

TEST_P(TourSights, EachOfTheListThatIsNotPendingHasAPictureThatShowsIt) {
    const auto met = listOf(folder_);
    for (const auto& sight : sights()) {
        if (sight.pending) continue;
        SCOPED_TRACE(sight.name);
        const auto found = met.find(sight.name);
        ASSERT_NE(found, met.end());
        EXPECT_EQ(found->second[1], sight.what);
        EXPECT_TRUE(files::exists(folder_ + '/' + found->second[0])) << found->second[0];
    }
}

TEST_P(TourSights, NoneIsToldOfThatTheListDoesNotKnow) {
    for (const auto& [name, rest] : listOf(folder_))
        EXPECT_TRUE(sightNamed(QString::fromStdString(name))) << name;
}

INSTANTIATE_TEST_SUITE_P(Looks, TourSights, testing::Values("dark", "light"),
                         [](const auto& look) { return std::string(look.param); });

TEST(Sights, HaveNamesOfTheirOwnAndMarksToKnowThemBy) {
    std::set<std::string> names;
    for (const auto& sight : sights()) {
        EXPECT_TRUE(names.insert(sight.name).second) << sight.name;
        EXPECT_FALSE(sight.marks.empty()) << sight.name;
    }
}

}  // namespace
}  // namespace brindlet::demo
