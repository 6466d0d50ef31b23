#include <algorithm>
#include <map>

#include "app/demo/Tour.h"
#include "session/AppState.h"

namespace brindlet::demo {
namespace {

using Group = std::vector<std::int64_t>;

/// Ticked messages of one sender and category each, the largest groups first.
std::vector<Group> groupsOf(const AppState& state) {
    std::map<std::pair<std::string, Category>, Group> byKey;
    for (const auto& verdict : *state.verdicts)
        if (verdict.messageID && state.approved->contains(verdict.id))
            byKey[{verdict.sender, verdict.category}].push_back(verdict.id);
    std::vector<Group> groups;
    for (auto& [key, ids] : byKey) groups.push_back(std::move(ids));
    std::ranges::stable_sort(groups, std::greater{}, [](const Group& ids) { return ids.size(); });
    return groups;
}

}  // namespace

void Tour::visitCorrections() {
    step(QStringLiteral("click Start"), [this] {
        return hand_.click(QStringLiteral("start")) && hand_.await([this] {
            return hand_.find(QStringLiteral("folders")) && !*state_.refreshingFolders;
        });
    });
    takeEverything();
    choose(fernhill, "INBOX");
    sort();
    offers();
    lateOffers();
    picture(QStringLiteral("learned"), {"summary.learned"});
    busyRule();
}

void Tour::catchOffers(std::vector<const char*>& wanted) {
    const bool answered =
        hand_.await([this] { return !state_.kindTask() || state_.kindTask()->finished(); });
    if (!answered || !hand_.rest()) return;
    for (const auto* each : std::vector(wanted)) {
        if (!stands(*sightNamed(QString::fromUtf8(each)))) continue;
        picture(QString::fromUtf8(each).replace(QLatin1Char('.'), QLatin1Char('-')), {each});
        std::erase(wanted, each);
    }
}

// Which message brings which offer is for the session to say; so messages are corrected until each
// offer has stood.
void Tour::offers() {
    std::vector<const char*> wanted{"offer.none", "offer.sender"};
    for (const auto& group : groupsOf(state_)) {
        if (wanted.empty() || !ok_) break;
        if (group.size() > 3) continue;
        state_.toggleMessage(group.front());
        catchOffers(wanted);
    }
}

// An offer has kin only if the ticks of its sender change, otherwise than by a click on a message,
// while the search for like messages goes on; as when a move ends just then. No tour can wait for
// that, so it completes the offer as the session would.
void Tour::lateOffers() {
    const auto complete = [this](bool withMembers) {
        for (const auto& group : groupsOf(state_)) {
            state_.toggleMessage(group.front());
            std::vector<const char*> none;
            catchOffers(none);
            if (!*state_.pending || (*state_.pending)->members.empty() == withMembers) continue;
            auto offer = **state_.pending;
            offer.kin = offer.everything;
            if (!withMembers) offer.everything.clear();
            state_.pending.set(std::move(offer));
            return hand_.rest();
        }
        return false;
    };
    step(QStringLiteral("an offer for messages of one pattern finds more like them"),
         [&] { return complete(true); });
    picture(QStringLiteral("offer-all"), {"offer.all"});
    step(QStringLiteral("one for a message without its like finds some about the same thing"),
         [&] { return complete(false); });
    picture(QStringLiteral("offer-kin"), {"offer.kin", "offer.theseKin"});
    state_.dismissPending();
}

}  // namespace brindlet::demo
