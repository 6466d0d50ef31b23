#include <gtest/gtest.h>

#include "words/AutomaticWords.h"
#include "words/CalibrationWords.h"
#include "words/CategoryWords.h"
#include "words/FolderWords.h"
#include "words/GmailAskWords.h"
#include "words/GmailNoticeWords.h"
#include "words/GooglePages.h"
#include "words/HistoryWords.h"
#include "words/IntentWords.h"
#include "words/ListWords.h"
#include "words/MoveWords.h"
#include "words/MovedWords.h"
#include "words/OfferWords.h"
#include "words/PermissionWords.h"
#include "words/PickWords.h"
#include "words/ResultsWords.h"
#include "words/ResumeWords.h"
#include "words/RuleWords.h"
#include "words/RulesWords.h"
#include "words/ScanningWords.h"
#include "words/UndoWords.h"
#include "words/UnsupportedWords.h"
#include "words/WelcomeWords.h"

namespace brindlet {
namespace {

// Every text here that no state changes, so that a change of one is seen.

TEST(StaticWords, Welcome) {
    const WelcomeWords words;
    EXPECT_EQ(words.symbol, "tray.full");
    EXPECT_EQ(words.title, "Brindlet");
    EXPECT_EQ(words.text,
              "Sorts the accounts you already have in Apple Mail, using the model built into "
              "macOS. No password, no sign-up, and your mail never leaves this Mac.");
    const std::vector<Badge> badges = {{"lock.fill", "Nothing uploaded"},
                                       {"cpu", "On-device model"},
                                       {"arrow.uturn.backward", "Nothing deleted"}};
    EXPECT_EQ(words.badges, badges);
    EXPECT_EQ(words.start, "Start");
}

TEST(StaticWords, Resume) {
    const ResumeWords words;
    EXPECT_EQ(words.symbol, "arrow.clockwise.circle.fill");
    EXPECT_EQ(words.title, "A move didn't finish");
    EXPECT_EQ(words.resume, "Continue");
    EXPECT_EQ(words.forget, "Forget the rest of this move");
}

TEST(StaticWords, Permission) {
    const PermissionWords words;
    EXPECT_EQ(words.symbol, "folder.badge.questionmark");
    EXPECT_EQ(words.title, "One permission");
    EXPECT_EQ(words.text,
              "Brindlet reads Mail's own files on this Mac, which macOS keeps behind Full Disk "
              "Access. Grant it, then come back and press Check again.");
    const std::vector<std::string> steps = {"Open Privacy & Security → Full Disk Access",
                                            "Switch on Brindlet", "Come back here and press Check"};
    EXPECT_EQ(words.steps, steps);
    EXPECT_EQ(words.openSettings, "Open Settings");
    EXPECT_EQ(words.check, "Check");
}

TEST(StaticWords, Unsupported) {
    const UnsupportedWords words;
    EXPECT_EQ(words.symbol, "exclamationmark.triangle");
    EXPECT_EQ(words.title, "Not available");
    EXPECT_EQ(words.openSettings, "Open Settings");
}

TEST(StaticWords, Pick) {
    const PickWords words;
    EXPECT_EQ(words.backSymbol, "chevron.left");
    EXPECT_EQ(words.title, "Choose a mailbox");
    EXPECT_EQ(words.text, "Start with your inbox. Nothing is moved without your say-so.");
    EXPECT_EQ(words.vanishedSymbol, "trash");
    EXPECT_EQ(words.dismissSymbol, "xmark");
    EXPECT_EQ(words.reachTitle, "HOW FAR BACK");
    EXPECT_EQ(words.sort, "Sort it");
}

TEST(StaticWords, Reaches) {
    EXPECT_EQ(reachLabel(Reach::week), "Past week");
    EXPECT_EQ(reachLabel(Reach::month), "Past month");
    EXPECT_EQ(reachLabel(Reach::threeMonths), "Past 3 months");
    EXPECT_EQ(reachLabel(Reach::year), "Past year");
    EXPECT_EQ(reachLabel(Reach::everything), "Everything");
}

TEST(StaticWords, FolderNotes) {
    using Role = MailFolder::Role;
    EXPECT_EQ(folderNote(Role::inbox), "what's sitting in your inbox now");
    EXPECT_EQ(folderNote(Role::junk), "already filtered out");
    EXPECT_EQ(folderNote(Role::archive),
              "everything ever received, including what you filed on purpose");
    EXPECT_EQ(folderNote(Role::sent), "mail you sent");
    EXPECT_EQ(folderNote(Role::drafts), "unsent drafts");
    EXPECT_EQ(folderNote(Role::trash), "already deleted");
    EXPECT_EQ(folderNote(Role::custom), "a folder you made");
}

TEST(StaticWords, Scanning) {
    const ScanningWords words;
    EXPECT_EQ(words.keepScanning, "Keep scanning on battery power");
    EXPECT_EQ(words.stop, "Stop");
}

TEST(StaticWords, Results) {
    const ResultsWords words;
    EXPECT_EQ(words.backSymbol, "chevron.left");
    EXPECT_EQ(words.scanAnother, "Scan another");
    EXPECT_EQ(words.rulesSymbol, "wand.and.stars");
    EXPECT_EQ(words.historySymbol, "clock.arrow.circlepath");
    EXPECT_EQ(words.history, "History");
    EXPECT_EQ(words.automaticSymbol, "clock.arrow.2.circlepath");
    const ScanErrorWords error;
    EXPECT_EQ(error.symbol, "exclamationmark.triangle.fill");
    EXPECT_EQ(error.title, "This scan was stopped");
    EXPECT_EQ(error.quit, "Quit Brindlet");
    const AllMovedWords moved;
    EXPECT_EQ(moved.symbol, "checkmark.circle");
    EXPECT_EQ(moved.next, "Scan another mailbox, or let Brindlet watch this one on a schedule.");
}

TEST(StaticWords, Categories) {
    EXPECT_EQ(CategoryWords().generalHelp, "Approve or skip this whole category");
}

TEST(StaticWords, MessageLists) {
    const ListWords words;
    EXPECT_EQ(words.filterSymbol, "magnifyingglass");
    EXPECT_EQ(words.filterPrompt, "Filter by sender or subject - sale");
    EXPECT_EQ(words.tickAll, "Tick all");
    EXPECT_EQ(words.untickAll, "Untick all");
    EXPECT_EQ(words.bySenderSymbol, "person.2");
    EXPECT_EQ(words.bySender, "By sender");
    EXPECT_EQ(words.bySenderHelp, "One row per sender instead of one per message");
    EXPECT_EQ(words.stayPut, "These stay put - none of them will be moved");
}

TEST(StaticWords, Move) {
    const MoveWords words;
    EXPECT_EQ(words.symbol, "tray.and.arrow.down");
    EXPECT_EQ(words.stop, "Stop");
    EXPECT_EQ(words.stopHelp,
              "Stop here - everything already filed stays filed, and the rest can continue later");
    EXPECT_EQ(words.menuSymbol, "chevron.down");
    EXPECT_EQ(words.menuHelp, "Which folder junk is filed into");
}

TEST(StaticWords, GmailAsk) {
    const GmailAskWords words;
    EXPECT_EQ(words.symbol, "envelope.badge.shield.half.filled");
    EXPECT_EQ(words.title, "Gmail needs your permission to move mail");
    EXPECT_EQ(words.why,
              "Google treats folders as labels. Apple Mail can tag a message for you, but it "
              "cannot take that message out of a Gmail inbox - so without this, junk gets labelled "
              "and stays exactly where it is.");
    EXPECT_EQ(words.allowSymbol, "checkmark.circle.fill");
    EXPECT_EQ(words.allowTitle, "If you allow");
    EXPECT_EQ(words.allowText,
              "Junk actually leaves your inbox and lands in the folder you chose. Nothing is ever "
              "deleted.");
    EXPECT_EQ(words.declineTitle, "If you don't");
    EXPECT_EQ(words.declineText,
              "Brindlet still sorts and labels everything - you just have to move it yourself, or "
              "it stays in your inbox.");
    const std::vector<SymbolLine> promises = {
        {"lock.fill",
         "Your mail never leaves this Mac. Brindlet has no server - there is nowhere else for it "
         "to go."},
        {"key.fill", "You sign in on Google's own page. Brindlet never sees your password."},
        {"hand.raised.fill",
         "It only ever adds a label and removes the Inbox one. It never sends, never deletes."},
        {"xmark.circle", "Revocable any time, here or at myaccount.google.com/permissions."}};
    EXPECT_EQ(words.promises, promises);
    EXPECT_EQ(words.explanation,
              "Google calls it an app password. It is not your Google password: it works for this "
              "app only, and you can revoke it on its own without touching your account.");
    EXPECT_EQ(words.warningSymbol, "exclamationmark.shield.fill");
    EXPECT_EQ(words.warning,
              "You need 2-Step Verification switched on first. Without it Google just says app "
              "passwords are “not available for your account” and offers no way to make one.");
    EXPECT_EQ(words.openPage, "Open Google's app password page");
    EXPECT_EQ(words.fieldTitle, "Name it Brindlet, then paste the 16 characters here:");
    EXPECT_EQ(words.prompt, "xxxx xxxx xxxx xxxx");
    EXPECT_EQ(words.keychain,
              "It is kept in your Mac's Keychain, encrypted behind your login password - not in a "
              "file. macOS will ask you to allow Brindlet to read it back; that prompt is Brindlet "
              "fetching this code to talk to Gmail, and nothing else.");
    EXPECT_EQ(words.decline, "Not now - just label them");
    EXPECT_EQ(gmailConnectedStatus, "Connected. Junk will really leave this inbox now.");
    EXPECT_STREQ(googlePages::appPasswords, "https://myaccount.google.com/apppasswords");
}

TEST(StaticWords, GmailPermission) {
    const GmailPermissionWords words;
    EXPECT_EQ(words.more, "Google will ask for a lot - here is what is actually used");
    EXPECT_EQ(words.moreSymbol, "chevron.down");
    EXPECT_EQ(words.less, "Hide what this permission means");
    EXPECT_EQ(words.lessSymbol, "chevron.up");
    const std::vector<SymbolLine> lines = {
        {"info.circle",
         "Google's consent screen will say Brindlet can read, send and delete your mail. That "
         "sentence is Google's, and it covers the only Gmail permission that exists - there is no "
         "smaller one."},
        {"checkmark.circle",
         "What Brindlet does with it: two commands. Put a label on a message, and take the Inbox "
         "label off. That is the whole of it."},
        {"checkmark.circle",
         "It never sends mail, never deletes mail, and never empties anything. Junk keeps its "
         "label and stays in All Mail for good, which is why Brindlet files into a folder rather "
         "than Spam."},
        {"lock",
         "Your mail stays on this Mac and on Google's servers. Brindlet has no server; there is "
         "nowhere else for it to go."},
        {"key",
         "The sign-in is Google's own page. Brindlet never sees your password. The token it gets "
         "back is kept in your Keychain and you can revoke it any time at "
         "myaccount.google.com/permissions, or with Disconnect above."}};
    EXPECT_EQ(words.lines, lines);
}

TEST(StaticWords, Intent) {
    const IntentWords words;
    EXPECT_EQ(words.label, "Junk will go to");
    EXPECT_EQ(words.menuSymbol, "chevron.down");
}

TEST(StaticWords, MovedMessages) {
    const MovedSectionWords words;
    EXPECT_EQ(words.symbol, "checkmark.circle.fill");
    EXPECT_EQ(words.badge, (Mark{"DONE", Tone::green, ""}));
    const MovedListWords list;
    EXPECT_EQ(list.hint, "Tick anything that shouldn't have gone.");
    EXPECT_EQ(list.filterSymbol, "magnifyingglass");
    EXPECT_EQ(list.filterPrompt, "Filter these");
}

TEST(StaticWords, Undo) {
    const UndoWords words;
    EXPECT_EQ(words.symbol, "arrow.uturn.backward");
    EXPECT_EQ(words.label, "Undo");
}

TEST(StaticWords, Offer) {
    EXPECT_EQ(OfferWords().symbol, "wand.and.stars");
}

TEST(StaticWords, Automatic) {
    const AutomaticWords words;
    EXPECT_EQ(words.backSymbol, "chevron.left");
    EXPECT_EQ(words.title, "Automatic sorting");
    EXPECT_EQ(words.text,
              "Brindlet checks the mailboxes you pick, on a schedule, while it sits in the menu "
              "bar.");
    EXPECT_EQ(words.enable, "Sort on a schedule");
    EXPECT_EQ(words.mailboxesTitle, "MAILBOXES TO SORT");
    EXPECT_EQ(words.goneSymbol, "exclamationmark.triangle.fill");
    EXPECT_EQ(words.removeGone, "Remove them");
    EXPECT_EQ(words.cadenceTitle, "HOW OFTEN");
    EXPECT_EQ(words.modeTitle, "WHAT IT DOES WHEN IT FINDS JUNK");
    EXPECT_EQ(words.runNow, "Run now");
}

TEST(StaticWords, History) {
    const HistoryWords words;
    EXPECT_EQ(words.title, "History");
    EXPECT_EQ(words.rulesTitle, "RULES YOU TAUGHT IT");
    EXPECT_EQ(words.binTitle, "RECENTLY DELETED");
    EXPECT_STREQ(historyLabels::putOnScreen, "Put this scan back on screen");
    EXPECT_STREQ(historyLabels::deleteScan, "Delete Scan");
    EXPECT_STREQ(historyLabels::deleteSymbol, "trash");
    EXPECT_STREQ(historyLabels::putBack, "Put back");
    EXPECT_STREQ(historyLabels::purgeHelp,
                 "Erase this scan and the verdicts it saved. Cannot be undone.");
}

TEST(StaticWords, Rules) {
    EXPECT_EQ(RulesWords().title, "Rules");
    const RuleFormWords form;
    EXPECT_EQ(form.forgetAll, "Forget all");
    EXPECT_EQ(form.forgetAllReally, "Really forget all?");
    EXPECT_EQ(form.prompt, "sender or domain - news.example");
    EXPECT_EQ(form.anyKind, "any kind of mail");
    EXPECT_EQ(form.isJunk, "is junk");
    EXPECT_EQ(form.isKept, "is kept");
    EXPECT_EQ(form.add, "Add rule");
    EXPECT_EQ(form.note,
              "A rule decides before the model is asked, so it is also the fastest way to sort.");
    EXPECT_EQ(form.example, "added by hand");
}

TEST(StaticWords, Rule) {
    const RuleControls controls;
    EXPECT_EQ(controls.showHelp, "Show the mail this rule covers");
    EXPECT_EQ(controls.enable, "Keep it");
    EXPECT_EQ(controls.enableHelp, "Start applying this rule again");
    EXPECT_EQ(controls.promote, "Make permanent");
    EXPECT_EQ(controls.promoteHelp, "Move it to Always, where nothing automatic touches it");
    EXPECT_EQ(controls.markSymbol, "xmark.circle.fill");
    EXPECT_EQ(controls.markHelp, "Forget this rule");
    EXPECT_EQ(controls.unmarkSymbol, "arrow.uturn.backward.circle.fill");
    EXPECT_EQ(controls.unmarkHelp, "Keep this rule after all");
    EXPECT_EQ(controls.narrow, "Untick any of these to narrow what this rule should catch.");
}

TEST(StaticWords, Calibration) {
    const CalibrationControls controls;
    EXPECT_EQ(controls.label, "LEARNED BY ITSELF");
    EXPECT_EQ(controls.note, "from corrections you made - you never wrote these");
    EXPECT_EQ(controls.stop, "Stop this");
    EXPECT_EQ(controls.mute, "Go back to letting the model decide this category");
    EXPECT_EQ(controls.forget, "Forget what it learned about this category");
}

}  // namespace
}  // namespace brindlet
