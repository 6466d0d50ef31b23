#include "words/GmailAskWords.h"

#include "words/GooglePages.h"

namespace brindlet {

GmailAskWords::GmailAskWords()
    : promises{
          {"lock.fill",
           "Your mail never leaves this Mac. Brindlet has no server - there is nowhere else for it "
           "to go."},
          {"key.fill", "You sign in on Google's own page. Brindlet never sees your password."},
          {"hand.raised.fill",
           "It only ever adds a label and removes the Inbox one. It never sends, never deletes."},
          {"xmark.circle",
           std::string("Revocable any time, here or at ") + googlePages::permissions + "."}} {}

GmailAskButton gmailAskButton(const GmailAsk& ask) {
    if (!ask.connecting) return {"Allow", !ask.checking};
    if (ask.checking) return {"Checking\u2026", false};
    return {"Check and save", ask.longEnough};
}

Mark gmailAskStatus(const GmailAsk& ask) {
    if (!ask.status) return {};
    return {*ask.status, ask.status->starts_with("Connected") ? Tone::green : Tone::orange, ""};
}

}  // namespace brindlet
