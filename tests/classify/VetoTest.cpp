#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <vector>

#include "base/Pattern.h"
#include "base/Utf8.h"
#include "classify/Classifier.h"

namespace brindlet {
namespace {

std::string times(int count, std::string_view text) {
    std::string all;
    for (; count > 0; --count) all += text;
    return all;
}

TEST(Veto, ProtectsWhatMustNotGoMissing) {
    for (const std::string_view subject :
         {"Your verification code", "Your order has shipped", "ORDER #1234", "2FA reset", "otp",
          "OTP: 1234", "pay your electricity bill", "Refunds!", "auto reload", "autoreloading",
          "Login to Lantern", "Sign-in alert", "A sound was played on a phone", "Your itineraryx"})
        EXPECT_TRUE(Classifier::isVetoed(subject)) << subject;
}

TEST(Veto, LetsOthersPass) {
    for (const std::string_view subject : {"",
                                           "Your verification  code",
                                           "Order now",
                                           "hotpot",
                                           "x2fa",
                                           "2fast",
                                           "otpx",
                                           "login to",
                                           "login too",
                                           "log in to win",
                                           "code",
                                           "time code",
                                           "your orders",
                                           "your bills",
                                           "order",
                                           "has been shipped",
                                           "payments received",
                                           "re-fund",
                                           "reset password",
                                           "suspicious",
                                           "auto  reload",
                                           "autorelo",
                                           "one_time code",
                                           "booking confirmed",
                                           "My weekly report"})
        EXPECT_FALSE(Classifier::isVetoed(subject)) << '"' << subject << '"';
}

TEST(Veto, CountsCharactersNotBytesBeforeTheBill) {
    EXPECT_TRUE(Classifier::isVetoed("pay your " + times(20, "\u00e9") + "bill"));
    EXPECT_FALSE(Classifier::isVetoed("pay your " + times(21, "\u00e9") + "bill"));
    EXPECT_FALSE(Classifier::isVetoed("pay your very very very very very long overdue bill"));
    EXPECT_FALSE(Classifier::isVetoed("pay your gas\nbill"));
}

TEST(Veto, WordBoundariesAreUnicodes) {
    EXPECT_FALSE(Classifier::isVetoed("\u00e9otp"));
    EXPECT_FALSE(Classifier::isVetoed("otp\u00e9"));
    EXPECT_FALSE(Classifier::isVetoed("\u0663otp"));
    EXPECT_TRUE(Classifier::isVetoed("\u2019otp\u2019"));
    EXPECT_FALSE(Classifier::isVetoed("your bill\u00e9"));
}

TEST(Veto, LongSAndKelvinSignAreLettersInAnotherCase) {
    EXPECT_TRUE(Classifier::isVetoed("pa\u017f\u017fword reset"));
    EXPECT_TRUE(Classifier::isVetoed("\u017fecure lin\u212a to log in"));
    EXPECT_TRUE(Classifier::isVetoed("boo\u212aing confirmation"));
    EXPECT_FALSE(Classifier::isVetoed("\u017fail the \u212aayak"));
}

TEST(Veto, NoOtherCharacterIsAnAsciiLetterInAnotherCase) {
    // What lets the search for literals look at bytes.
    const Pattern letter("(?i)[a-z]");
    for (char32_t c = 0x80; c <= 0x10FFFF; ++c) {
        if (c >= 0xD800 && c <= 0xDFFF) continue;
        std::string text;
        appendCodePoint(text, c);
        ASSERT_EQ(letter.occursIn(text), c == 0x17F || c == 0x212A) << static_cast<unsigned>(c);
    }
}

TEST(Veto, TextThatIsNotUtf8CountsAsNoMatch) {
    EXPECT_FALSE(Classifier::isVetoed("refund \xFF"));
    EXPECT_FALSE(Classifier::isVetoed("\xC3"));
}

/// The text in mixed case, now and then with the other small s and big K.
std::string inAnyCase(std::string_view text, std::mt19937& random) {
    std::string out;
    for (const char c : text) {
        if (c == 's' && random() % 40 == 0)
            out += "\u017f";
        else if (c == 'k' && random() % 20 == 0)
            out += "\u212a";
        else
            out += c >= 'a' && c <= 'z' && random() % 3 == 0 ? static_cast<char>(c - 32) : c;
    }
    return out;
}

TEST(Veto, SearchForLiteralsNeverChangesTheAnswer) {
    // The expression's words, whole and broken, put together by chance.
    constexpr auto pieces = std::to_array<std::string_view>({"verification",
                                                             "security",
                                                             "login",
                                                             "log-in",
                                                             "sign-in",
                                                             "access",
                                                             "one",
                                                             "-",
                                                             " ",
                                                             "time",
                                                             "confirmation",
                                                             "code",
                                                             "2fa",
                                                             "password",
                                                             "otp",
                                                             "recovery",
                                                             "backup",
                                                             "new",
                                                             "to",
                                                             "logged",
                                                             "in",
                                                             "signed",
                                                             "username",
                                                             "changed",
                                                             "reset",
                                                             "your",
                                                             "secure",
                                                             "link",
                                                             "log",
                                                             "device",
                                                             "sign",
                                                             "was",
                                                             "used",
                                                             "alert",
                                                             "a",
                                                             "sound",
                                                             "played",
                                                             "hide",
                                                             "my",
                                                             "email",
                                                             "has",
                                                             "been",
                                                             "credited",
                                                             "change",
                                                             "suspicious",
                                                             "activity",
                                                             "receipt",
                                                             "invoice",
                                                             "order",
                                                             "statement",
                                                             "bill",
                                                             "#",
                                                             "is",
                                                             "shipped",
                                                             "out",
                                                             "for",
                                                             "delivery",
                                                             "payment",
                                                             "received",
                                                             "due",
                                                             "refund",
                                                             "pay",
                                                             "subscription",
                                                             "renewal",
                                                             "expiring",
                                                             "auto",
                                                             "relo",
                                                             "reload",
                                                             "reloading",
                                                             "ad",
                                                             "appointment",
                                                             "confirmed",
                                                             "reminder",
                                                             "booking",
                                                             "itinerary",
                                                             "s",
                                                             "ing",
                                                             "x",
                                                             "\u00e9",
                                                             "\u017f",
                                                             "\u212a",
                                                             "\u2019",
                                                             "\u0301",
                                                             "7",
                                                             "_",
                                                             "\n",
                                                             "pay your ",
                                                             "login to ",
                                                             "your "});
    const Pattern bare(Classifier::vetoRegex());
    std::mt19937 random(1);
    int hits = 0;
    constexpr int rounds = 300'000;
    for (int round = 0; round < rounds; ++round) {
        std::string subject;
        for (auto left = 1 + random() % 5; left > 0; --left) {
            subject += inAnyCase(pieces[random() % pieces.size()], random);
            if (random() % 4 != 0) subject += random() % 12 == 0 ? '-' : ' ';
        }
        const bool expected = bare.occursIn(subject);
        ASSERT_EQ(Classifier::isVetoed(subject), expected) << subject;
        hits += expected;
    }
    EXPECT_GT(hits, rounds / 100);
    EXPECT_LT(hits, rounds / 2);
}

TEST(Veto, SearchForLiteralsLetsEveryAlternativeThrough) {
    using Parts = std::vector<std::vector<std::string>>;
    const std::vector<Parts> alternatives{
        {{"verification", "security", "login", "log-in", "sign-in", "access", "one time",
          "one-time", "confirmation"},
         {" code"}},
        {{"2fa", "one time password", "one-time password", "otp", "recovery code", "backup code",
          "new login", "login to ", "logged in to", "signed in to", "username changed",
          "password reset", "reset your password"}},
        {{"secure link to log"}, {"", " "}, {"in"}},
        {{"new "}, {"device", "signin", "sign-in", "sign in"}},
        {{"was used to sign in"}},
        {{"signin", "sign-in", "sign in", "login"}, {" alert"}},
        {{"a sound was played", "hide my email was used", "has been credited",
          "change your password"}},
        {{"suspicious "}, {"activity", "sign"}},
        {{"your "}, {"receipt", "invoice", "order", "statement", "bill"}},
        {{"order "}, {"confirmation", "#", "is", "has shipped"}},
        {{"has shipped", "out for delivery"}},
        {{"payment "}, {"received", "confirmation", "due"}},
        {{"refund"}},
        {{"pay your "}, {"", "x", "12345678901234567890"}, {"bill"}},
        {{"subscription "}, {"renewal", "is expiring"}},
        {{"auto"}, {"", " "}, {"relo"}, {"ad", "ading"}},
        {{"appointment "}, {"confirmed", "reminder"}},
        {{"booking confirmation", "itinerary"}},
    };
    std::mt19937 random(2);
    for (const auto& parts : alternatives) {
        std::vector<std::string> texts{""};
        for (const auto& part : parts) {
            std::vector<std::string> longer;
            for (const auto& start : texts)
                for (const auto& end : part) longer.push_back(start + end);
            texts = std::move(longer);
        }
        for (const auto& text : texts) {
            EXPECT_TRUE(Classifier::isVetoed(text)) << text;
            EXPECT_TRUE(Classifier::isVetoed("Re: " + text + " - 7")) << text;
            for (int round = 0; round < 20; ++round) {
                const auto varied = inAnyCase(text, random);
                EXPECT_TRUE(Classifier::isVetoed(varied)) << varied;
            }
        }
    }
}

}  // namespace
}  // namespace brindlet
