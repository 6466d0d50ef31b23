#include "app/demo/SightTables.h"

namespace brindlet::demo {
namespace {

/// The screen of the schedule.
std::vector<Sight> automaticSights() {
    return {
        {"automatic",
         "the schedule",
         {"Automatic sorting",
          "Brindlet checks the mailboxes you pick, on a schedule, while it sits in the menu bar.",
          "Sort on a schedule"}},
        {"automatic.mailboxes", "the mailboxes to sort", {"MAILBOXES TO SORT", "# picked"}},
        {"automatic.nonePicked", "none is picked", {"pick at least one, or nothing will run"}},
        {"automatic.noAccounts",
         "no accounts are known yet",
         {"No accounts read yet - open Brindlet's main screen once."}},
        {"automatic.account",
         "an account with its folders",
         {"symbol:person.crop.circle", "symbol:checkmark.square.fill", "symbol:square",
          "what's sitting in your inbox now"}},
        {"automatic.gone",
         "a mailbox that was picked is gone",
         {"symbol:exclamationmark.triangle.fill", "* is no longer in Mail, so it is skipped.",
          "Remove them"}},
        {"automatic.goneSome",
         "several are",
         {"# picked mailboxes are no longer in Mail, so they are skipped."}},
        {"automatic.often", "how often", {"HOW OFTEN"}},
        {"automatic.modes",
         "what it does when it finds junk",
         {"WHAT IT DOES WHEN IT FINDS JUNK", "symbol:largecircle.fill.circle", "symbol:circle",
          "Collect for review", "Move it for me"}},
        {"automatic.now", "the button that starts a run", {"Run now"}},
    };
}

std::vector<Sight> rulesSights() {
    return {
        {"rules", "the rules", {"symbol:chevron.left", "Rules"}},
        {"rules.counts",
         "how many of each kind",
         {"# need a look \u00b7 # always \u00b7 # learned"}},
        {"rules.none",
         "there are none",
         {"Corrections you make become rules here.", "Nothing yet. Untick a message Brindlet*"}},
        {"rules.forgetAll", "the button that forgets all", {"Forget all"}},
        {"rules.forgetAllReally", "which asks once more", {"Really forget all?"}},
        {"rules.form",
         "the form that makes a rule",
         {"sender or domain - *", "any kind of mail", "is junk",
          "A rule decides before the model is asked, so it is also the fastest way to sort."}},
        {"rules.kinds",
         "the kinds of mail that it may be for",
         {"any kind of mail", "Ads & promotions", "Newsletters & digests", "Social notifications",
          "Receipts & orders", "Bills & payments", "Security & sign-in", "Accounts & invitations"}},
        {"rules.kindsMore", "the last of them", {"People & reminders", "Bounced mail"}},
        {"rules.verdicts", "what it may say", {"is junk", "is kept"}},
        {"rules.flips",
         "what was learned of whole categories",
         {"LEARNED BY ITSELF", "from corrections you made - you never wrote these"}},
        {"rules.flipKeep",
         "a category that is kept by now",
         {"KEEP", "You rescued # of # - Brindlet stopped calling these junk", "Stop this"}},
        {"rules.flipJunk",
         "a category that is junk by now",
         {"JUNK", "You binned # of # - Brindlet now treats these as junk"}},
        {"rules.stop",
         "the two ways to stop that",
         {"Go back to letting the model decide this category",
          "Forget what it learned about this category"}},
        {"rules.held",
         "rules that wait for a look",
         {"NEEDS A LOOK", "written by a bug - not being applied until you say so",
          "Not being applied - *", "Keep it", "Start applying this rule again"}},
        {"rules.always",
         "rules that last",
         {"ALWAYS", "kept between launches, and used by every mailbox"}},
        {"rules.session",
         "rules of the session",
         {"LEARNED FROM YOUR TICKS",
          "made automatically as you correct - kept until you remove them", "Make permanent",
          "Move it to Always, where nothing automatic touches it"}},
        {"rules.verdict", "a rule's verdict, which a click flips", {"Flip this rule"}},
        {"rules.here", "how many messages of the last scan it covers", {"# here"}},
        {"rules.hits", "how often it was made", {"\u00d7#"}},
        {"rules.mark", "the mark to forget it", {"symbol:xmark.circle.fill", "Forget this rule"}},
        {"rules.marked",
         "a rule that is marked",
         {"Will be forgotten when you leave this screen", "symbol:arrow.uturn.backward.circle.fill",
          "Keep this rule after all"}},
        {"rules.messages",
         "the messages that it covers",
         {"Show the mail this rule covers",
          "Untick any of these to narrow what this rule should catch."}},
    };
}

std::vector<Sight> historySights() {
    return {
        {"history", "the history", {"symbol:chevron.left", "History"}},
        {"history.nothing", "nothing was sorted yet", {"Nothing sorted yet."}},
        {"history.one", "one scan", {"1 scan*"}},
        {"history.count", "several", {"# scans \u00b7 # messages moved in total"}},
        {"history.rules", "the rules that last", {"RULES YOU TAUGHT IT"}},
        {"history.scan", "a scan", {"* - *@*", "# sorted", "symbol:trash", "symbol:chevron.down"}},
        {"history.moved", "one that has moved mail", {"# moved"}},
        {"history.open",
         "the same, open",
         {"# junk of #", "moved into *", "# MOVED", "Put this scan back on screen"}},
        {"history.noSubject", "a moved message without a subject", {"# MOVED", "(no subject)"}},
        {"history.menu", "what can be done with a scan", {"Delete Scan"}},
        {"history.forget",
         "the button that forgets what was sorted",
         {"Forget # sorted messages", "Next scan will look at everything again"}},
        {"bin", "the bin", {"RECENTLY DELETED", "kept for 30 days, then cleared", "Empty"}},
        {"bin.empty", "its button asks once more", {"Really delete all?"}},
        {"bin.oneDay", "a scan with a day left", {"# sorted* - 1 day left"}},
        {"bin.days", "one with more", {"# sorted* - # days left"}},
        {"bin.moved", "one that had moved mail", {"# sorted \u00b7 # moved - # days left"}},
        {"bin.buttons",
         "what can be done with it",
         {"Put back", "Delete", "Erase this scan and the verdicts it saved. Cannot be undone."}},
        {"bin.really", "its erasure asks once more", {"Really?"}},
    };
}

}  // namespace

std::vector<Sight> keptSights() {
    auto all = automaticSights();
    for (auto table : {rulesSights(), historySights()})
        all.insert(all.end(), table.begin(), table.end());
    return all;
}

}  // namespace brindlet::demo
