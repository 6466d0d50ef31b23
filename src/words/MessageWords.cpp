#include "words/MessageWords.h"

#include "session/AppState.h"
#include "words/Subject.h"
#include "words/TickBox.h"

namespace brindlet {
namespace {

Mark noteOn(bool ticked) {
    return ticked ? Mark{"Will be moved", Tone::orange,
                         "Will be moved - and Brindlet will remember this sender"}
                  : Mark{"Will stay put", Tone::green,
                         "Will stay put - Brindlet will remember this sender"};
}

}  // namespace

MessageWords messageWords(const AppState& state, const Verdict& verdict) {
    MessageWords words;
    words.subject = shownSubject(verdict.subject);
    words.sender = verdict.sender;
    words.canTick = verdict.messageID.has_value();
    const bool ticked = words.canTick && state.approved->contains(verdict.id);
    words.tickSymbol = tickSymbol({ticked, words.canTick});
    if (!words.canTick) {
        words.tickHelp =
            "Mail has no id for this message, so Brindlet can't tick or move it. Everything else "
            "works as usual.";
        return words;
    }
    // What the scan ticked: junk, or in a junk folder the opposite.
    if (ticked != (verdict.isJunk != state.isJunkFolder())) words.note = noteOn(ticked);
    if (MailStore::messageLink(*verdict.messageID)) words.openHelp = "Open in Mail";
    return words;
}

}  // namespace brindlet
