#include "sample/SampleTexts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "base/Utf8.h"
#include "sample/MimeText.h"

namespace brindlet::sample {
namespace {

const SampleTexts& texts() {
    static const SampleTexts texts;
    return texts;
}

std::vector<std::string> allOf(const Family& family, std::uint64_t key) {
    const Person sender =
        family.fromContact() ? texts().contacts().front() : family.senders.front();
    const Person recipient = texts().contacts().back();
    const Filling filling{texts().words(), key, sender, recipient, 1'700'000'000};
    std::vector<std::string> all;
    for (const SubjectLine& line : family.subjects) {
        all.push_back(line.subject.filled(filling));
        if (line.opening) all.push_back(line.opening->filled(filling));
    }
    for (const auto* list : {&family.openings, &family.sayings, &family.endings})
        for (const Template& text : *list) all.push_back(text.filled(filling));
    for (const Card& card : texts().cards(family)) {
        all.push_back(card.title.filled(filling));
        all.push_back(card.text.filled(filling));
    }
    return all;
}

TEST(SampleTexts, EveryPlaceOfEveryTextIsFilled) {
    for (const Family& family : texts().families())
        for (std::uint64_t key = 0; key < 5; ++key)
            for (const std::string& text : allOf(family, key)) {
                EXPECT_EQ(text.find_first_of("{}*^|"), std::string::npos) << text;
                EXPECT_EQ(text.find(" :: "), std::string::npos) << text;
                EXPECT_TRUE(isValidUtf8(text)) << text;
                EXPECT_FALSE(text.empty());
            }
}

TEST(SampleTexts, EveryFamilyIsComplete) {
    for (const Family& family : texts().families()) {
        SCOPED_TRACE(family.category + ' ' +
                     (family.senders.empty() ? "contacts" : family.senders.front().shown()));
        EXPECT_FALSE(family.subjects.empty());
        EXPECT_FALSE(family.sayings.empty());
        EXPECT_FALSE(family.endings.empty());
        EXPECT_GT(family.weight, 0u);
        bool everySubjectOpens = true;
        for (const SubjectLine& line : family.subjects)
            everySubjectOpens = everySubjectOpens && line.opening;
        EXPECT_TRUE(everySubjectOpens || !family.openings.empty());
    }
}

TEST(SampleTexts, AFamilyInAsciiStaysInAscii) {
    for (const Family& family : texts().families()) {
        if (!family.ascii) continue;
        for (const std::string& text : allOf(family, 3)) EXPECT_TRUE(isAscii(text)) << text;
    }
}

TEST(SampleTexts, OtherTonguesAreThereForAllCategoriesButBounces) {
    std::set<std::string> all;
    std::set<std::string> foreign;
    for (const Family& family : texts().families())
        (family.ascii ? all : foreign).insert(family.category);
    EXPECT_EQ(all.size(), 10u);
    all.erase("deliveryFailureBounce");
    EXPECT_EQ(foreign, all);
}

TEST(SampleTexts, AllAddressesAreInDomainsThatCannotExist) {
    std::vector<Person> people = texts().contacts();
    people.insert(people.end(), texts().colleagues().begin(), texts().colleagues().end());
    for (const Family& family : texts().families())
        people.insert(people.end(), family.senders.begin(), family.senders.end());
    EXPECT_GT(people.size(), 300u);
    for (const Person& person : people) {
        EXPECT_TRUE(person.domain().ends_with(".example")) << person.shown();
        EXPECT_FALSE(person.name.empty()) << person.address;
        EXPECT_EQ(person.address.find(' '), std::string::npos) << person.address;
    }
}

TEST(SampleTexts, BouncesBeginAsMailServersBegin) {
    const std::set<std::string> beginnings{"Undeliverable", "Delivery Status Notification",
                                           "Returned mail", "Mail delivery failed"};
    for (const Family& family : texts().families()) {
        if (family.category != "deliveryFailureBounce") continue;
        const Person nobody;
        for (const SubjectLine& line : family.subjects) {
            const std::string subject =
                line.subject.filled({texts().words(), 1, nobody, nobody, 0});
            EXPECT_TRUE(std::any_of(beginnings.begin(), beginnings.end(), [&](const auto& words) {
                return subject.starts_with(words);
            })) << subject;
        }
    }
}

}  // namespace
}  // namespace brindlet::sample
