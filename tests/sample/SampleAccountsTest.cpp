#include "sample/SampleAccounts.h"

#include <gtest/gtest.h>

#include <set>

namespace brindlet::sample {
namespace {

TEST(SampleAccounts, SharesOfAllFoldersAddUpToAThousand) {
    int sum = 0;
    for (const SampleAccount& account : sampleAccounts())
        for (const SampleFolder& folder : account.folders) {
            sum += folder.permille;
            EXPECT_EQ(folder.permille > 0, folder.storage == Storage::filed) << folder.name;
        }
    EXPECT_EQ(sum, 1000);
}

TEST(SampleAccounts, IdentifiersHaveThirtySixCharactersAndDiffer) {
    std::set<std::string_view> ids;
    for (const SampleAccount& account : sampleAccounts()) {
        EXPECT_EQ(account.id.size(), 36u) << account.name;
        ids.insert(account.id);
    }
    EXPECT_EQ(ids.size(), sampleAccounts().size());
}

}  // namespace
}  // namespace brindlet::sample
