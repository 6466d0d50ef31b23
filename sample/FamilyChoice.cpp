#include "sample/FamilyChoice.h"

#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace brindlet::sample {
namespace {

constexpr std::array<std::string_view, 10> categories{
    "advertisingOrPromotion",
    "newsletterOrDigest",
    "socialMediaBlast",
    "receiptOrOrderOrShipping",
    "billOrPayment",
    "securityCodeOrSignInAlert",
    "accountWelcomeOrInvitation",
    "personalMessageOrReminder",
    "deliveryFailureBounce",
    "cannotTell",
};

/// How many of a hundred messages of a folder are of each category, in the order above.
constexpr std::array<int, 10> sharesOf(Mix mix) {
    switch (mix) {
        case Mix::inbox:
            return {22, 19, 13, 12, 7, 7, 4, 13, 1, 2};
        case Mix::junk:
            return {68, 12, 4, 4, 2, 3, 1, 3, 2, 1};
        case Mix::archive:
            return {2, 6, 1, 30, 20, 4, 6, 28, 1, 2};
        case Mix::trash:
            return {38, 24, 20, 6, 3, 4, 2, 2, 1, 0};
        case Mix::project:
            return {0, 0, 0, 3, 0, 0, 4, 90, 0, 3};
        case Mix::work:
            return {6, 12, 3, 4, 3, 6, 8, 52, 3, 3};
        case Mix::mailingList:
            return {5, 95, 0, 0, 0, 0, 0, 0, 0, 0};
        case Mix::sent:
        case Mix::drafts:
            break;
    }
    return {0, 0, 0, 0, 0, 0, 0, 100, 0, 0};
}

std::size_t chooseCategory(Mix mix, Random& random) {
    const auto shares = sharesOf(mix);
    auto at = static_cast<int>(random.below(100));
    std::size_t category = 0;
    while (at >= shares[category]) at -= shares[category++];
    return category;
}

std::uint64_t weightIn(const Family& family, Mix mix) {
    if (family.marked("scam")) return mix == Mix::junk ? family.weight * 8 : 1;
    if (family.marked("work") && mix == Mix::work) return family.weight * 8;
    return family.weight;
}

}  // namespace

bool writtenByOwner(Mix mix) {
    return mix == Mix::sent || mix == Mix::drafts;
}

const Family& chooseFamily(const SampleTexts& texts, Mix mix, Random& random) {
    const std::string_view category = categories[chooseCategory(mix, random)];
    const bool foreign = random.chance(50);
    std::vector<std::pair<const Family*, std::uint64_t>> choices;
    std::uint64_t total = 0;
    // A category without a family in the tongue takes one in the other.
    for (const bool anyTongue : {false, true}) {
        if (!choices.empty()) break;
        for (const Family& family : texts.families()) {
            if (family.category != category || (!anyTongue && family.ascii == foreign)) continue;
            if (writtenByOwner(mix) && !family.fromContact()) continue;
            choices.emplace_back(&family, weightIn(family, mix));
            total += choices.back().second;
        }
    }
    std::uint64_t chosen = random.below(total);
    for (const auto& [family, weight] : choices) {
        if (chosen < weight) return *family;
        chosen -= weight;
    }
    return *choices.back().first;
}

}  // namespace brindlet::sample
