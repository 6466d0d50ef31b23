#include "words/GmailAskWords.h"

#include <gtest/gtest.h>

namespace brindlet {
namespace {

TEST(GmailAskButton, SaysAndAllowsWhatComesNext) {
    const struct {
        GmailAsk ask;
        const char* label;
        bool enabled;
    } rows[] = {
        {{false, false, false, {}}, "Allow", true},
        {{false, false, true, {}}, "Allow", true},
        {{true, false, false, {}}, "Check and save", false},
        {{true, false, true, {}}, "Check and save", true},
        {{true, false, true, "Gmail refused the sign-in."}, "Check and save", true},
        {{true, true, true, {}}, "Checking…", false},
        {{true, true, false, {}}, "Checking…", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message()
                     << row.ask.connecting << row.ask.checking << row.ask.longEnough);
        EXPECT_EQ(gmailAskButton(row.ask), (GmailAskButton{row.label, row.enabled}));
    }
}

TEST(GmailAskStatus, IsGreenWhenItBeginsWithConnectedAndOrangeElse) {
    const struct {
        const char* status;
        Tone tone;
    } rows[] = {
        {"Connected. Junk will really leave this inbox now.", Tone::green},
        {"Connected, but not for long", Tone::green},
        {"ConnectedButOneWord", Tone::green},
        {"connected", Tone::orange},
        {"Not Connected", Tone::orange},
        {"Couldn't reach Gmail: Network is down", Tone::orange},
        {"", Tone::orange},
    };
    for (const auto& row : rows) {
        GmailAsk ask;
        ask.status = row.status;
        EXPECT_EQ(gmailAskStatus(ask), (Mark{row.status, row.tone, ""})) << row.status;
    }
    EXPECT_EQ(gmailAskStatus({}), Mark());
}

}  // namespace
}  // namespace brindlet
