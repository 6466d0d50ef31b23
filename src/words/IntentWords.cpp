#include "words/IntentWords.h"

#include <algorithm>

#include "mail/GmailAccount.h"
#include "mail/JunkDestination.h"
#include "session/AppState.h"

namespace brindlet {
namespace {

bool hasFolder(const MailAccount& account, const std::string& name) {
    return std::any_of(account.folders.begin(), account.folders.end(),
                       [&](const MailFolder& folder) { return folder.name == name; });
}

/// Ours is called new even where it exists already.
std::string entryLabel(const std::string& name, const MailAccount& account) {
    if (name == ownJunkFolder) return name + " - a new folder Brindlet makes";
    if (isSpamFolder(name, account))
        return name + " - also trains Google, and it clears the folder after 30 days";
    return name + " - already in this account";
}

std::vector<DestinationWords> entries(const MailAccount& account, const std::string& chosen) {
    std::vector<DestinationWords> all;
    for (auto& name : junkCandidates(account)) {
        DestinationWords words;
        words.label = entryLabel(name, account);
        words.chosen = name == chosen;
        if (words.chosen) words.symbol = "checkmark";
        words.name = std::move(name);
        all.push_back(std::move(words));
    }
    return all;
}

std::string consequence(const MailAccount& account, const std::string& destination) {
    if (isSpamFolder(destination, account))
        return "Marking mail here trains Google's filter against those senders and can stop them "
               "reaching you at all - and Google clears Spam after about 30 days. Brindlet Junk "
               "keeps everything instead.";
    std::string text = hasFolder(account, destination)
                           ? "A folder this account already has. Nothing is ever deleted - you can "
                             "move anything back."
                           : "Brindlet will create it the first time it moves anything. Nothing is "
                             "ever deleted.";
    // Said of a connected account as well, whose mail goes another way.
    if (isLabelFolder(destination, account))
        text +=
            " On Gmail the move runs through Mail itself, so Mail comes to the front while it "
            "works.";
    return text;
}

IntentWords backwardsWords() {
    IntentWords words;
    words.symbol = "arrow.uturn.left";
    words.backwards = "This is a junk folder, so Brindlet works backwards here";
    words.text =
        "It looks for real mail that got filtered by mistake and offers to move it back to your "
        "inbox. Anything Brindlet filed here itself is skipped.";
    return words;
}

}  // namespace

DestinationTint destinationTint(const AppState& state) {
    if (!*state.account) return DestinationTint::fresh;
    const MailAccount& account = **state.account;
    const auto destination = state.destinationName();
    if (isSpamFolder(destination, account)) return DestinationTint::spam;
    return hasFolder(account, destination) ? DestinationTint::own : DestinationTint::fresh;
}

std::optional<IntentWords> intentWords(const AppState& state) {
    if (state.isJunkFolder()) return backwardsWords();
    if (!*state.account) return std::nullopt;
    const MailAccount& account = **state.account;
    IntentWords words;
    words.destination = state.destinationName();
    words.symbol = hasFolder(account, words.destination) ? "tray.full" : "folder.badge.plus";
    words.tint = destinationTint(state);
    words.destinations = entries(account, words.destination);
    words.text = consequence(account, words.destination);
    return words;
}

}  // namespace brindlet
