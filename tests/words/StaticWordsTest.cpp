#include <gtest/gtest.h>

#include "words/CategoryWords.h"
#include "words/FolderWords.h"
#include "words/ListWords.h"
#include "words/OfferWords.h"
#include "words/PermissionWords.h"
#include "words/PickWords.h"
#include "words/ResultsWords.h"
#include "words/ScanningWords.h"
#include "words/UndoWords.h"
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

TEST(StaticWords, Undo) {
    const UndoWords words;
    EXPECT_EQ(words.symbol, "arrow.uturn.backward");
    EXPECT_EQ(words.label, "Undo");
}

TEST(StaticWords, Offer) {
    EXPECT_EQ(OfferWords().symbol, "wand.and.stars");
}

}  // namespace
}  // namespace brindlet
