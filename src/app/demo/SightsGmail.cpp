#include "app/demo/SightTables.h"

namespace brindlet::demo {

std::vector<Sight> gmailSights() {
    return {
        {"gmail.ask",
         "the question about Gmail",
         {"symbol:envelope.badge.shield.half.filled", "Gmail needs your permission to move mail",
          "*@*", "Google treats folders as labels.*"}},
        {"gmail.cases",
         "its two cases",
         {"symbol:checkmark.circle.fill", "If you allow", "Junk actually leaves your inbox*",
          "If you don't", "Brindlet still sorts and labels everything*"}},
        {"gmail.promises",
         "its four promises",
         {"symbol:lock.fill", "Your mail never leaves this Mac.*", "symbol:key.fill",
          "You sign in on Google's own page.*", "symbol:hand.raised.fill",
          "It only ever adds a label*", "symbol:xmark.circle", "Revocable any time, here or at *"}},
        {"gmail.answers", "its two answers", {"Not now - just label them", "Allow"}},
        {"gmail.password",
         "the panel for the app password",
         {"Google calls it an app password.*", "symbol:exclamationmark.shield.fill",
          "You need 2-Step Verification switched on first.*", "Open Google's app password page",
          "Name it Brindlet, then paste the 16 characters here:", "xxxx xxxx xxxx xxxx",
          "It is kept in your Mac's Keychain*", "Check and save"}},
        {"gmail.checking", "the password is tried", {"Checking\u2026"}},
        {"gmail.refused", "it was refused", {"Gmail refused the sign-in: *"}},
        {"gmail.accepted", "it was right", {"Connected. Junk will really leave this inbox now."}},

        {"gmail.apart",
         "the notice of an account that is not connected",
         {"symbol:exclamationmark.triangle.fill",
          "Gmail needs one connection before junk can leave the inbox",
          "Gmail has labels, not folders.*", "Connect Gmail"}},
        {"gmail.connected",
         "the notice of one that is",
         {"symbol:checkmark.seal.fill", "Gmail connected - moves are instant and silent",
          "Brindlet files mail through Gmail directly*", "Disconnect"}},
        {"gmail.closed",
         "what the permission means, closed",
         {"symbol:chevron.down", "Google will ask for a lot - here is what is actually used"}},
        {"gmail.open",
         "the same, open",
         {"symbol:chevron.up", "Hide what this permission means", "symbol:info.circle",
          "Google's consent screen will say*", "symbol:checkmark.circle",
          "What Brindlet does with it: two commands.*", "It never sends mail*", "symbol:lock",
          "Your mail stays on this Mac and on Google's servers.*", "symbol:key",
          "The sign-in is Google's own page.*"}},

        {"intent.junk",
         "a folder of junk is chosen",
         {"symbol:arrow.uturn.left", "This is a junk folder, so Brindlet works backwards here",
          "It looks for real mail that got filtered by mistake*"}},
        {"intent.existing",
         "junk goes to a folder that is there",
         {"Junk will go to", "symbol:tray.full", "symbol:chevron.down",
          "A folder this account already has. Nothing is ever deleted*"}},
        {"intent.missing",
         "junk goes to a folder that is still to be made",
         {"Junk will go to", "symbol:folder.badge.plus",
          "Brindlet will create it the first time it moves anything. Nothing is ever deleted.*"}},
        {"intent.label",
         "junk goes to a label",
         {"* On Gmail the move runs through Mail itself, so Mail comes to the front while it "
          "works."}},
        {"intent.spam",
         "junk goes to Gmail's own spam",
         {"Marking mail here trains Google's filter*"}},
        {"intent.entryNew",
         "the choice of a new folder",
         {"Brindlet Junk - a new folder Brindlet makes"}},
        {"intent.entrySpam",
         "the choice of Gmail's spam",
         {"* - also trains Google, and it clears the folder after 30 days"}},
        {"intent.entry",
         "the choice of another folder, and the mark at the present one",
         {"symbol:checkmark", "* - already in this account"}},
    };
}

std::vector<Sight> demoSights() {
    return {
        {"demo.opened", "what the demo did instead of opening something", {"DEMO", "Would open *"}},
    };
}

}  // namespace brindlet::demo
