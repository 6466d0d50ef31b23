#include "models/embedded/Features.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "models/embedded/Ascii.h"
#include "models/embedded/Hash.h"
#include "models/embedded/PlainText.h"
#include "models/embedded/Sender.h"
#include "models/embedded/Tokens.h"

namespace brindlet {
namespace {

constexpr std::size_t subjectTokens = 40;
constexpr std::size_t bodyTokens = 130;
constexpr std::size_t senderTokens = 8;

using Tokens = std::vector<std::string_view>;

/// What a feature is of: hashed first, so that a word weighs differently in subject and body.
constexpr std::uint64_t kind(std::string_view name) {
    return hashed(hashed(hashStart, name), "\n");
}

std::uint32_t keyOf(std::uint64_t hash) {
    hash ^= hash >> 33;
    hash *= 0xff51afd7ed558ccd;
    hash ^= hash >> 33;
    return static_cast<std::uint32_t>(hash);
}

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

class Builder {
  public:
    Builder(const Concepts& concepts, Features& out)
        : concepts_(concepts), features_(out), out_(out.all) {}

    void add(std::uint64_t of, std::string_view text, float value) {
        out_.push_back({keyOf(hashed(of, text)), value});
    }
    void addPair(std::uint64_t of, std::string_view first, std::string_view second, float value) {
        out_.push_back({keyOf(hashed(hashed(hashed(of, first), "|"), second)), value});
    }
    void addIf(bool holds, std::string_view fact) {
        if (holds) add(kind("fact"), fact, 1);
    }
    /// Each concept of the tokens once.
    void addConcepts(std::uint64_t of, const Tokens& found, float value) {
        std::vector<bool> seen(concepts_.count());
        concepts_.each(found, [&](std::size_t group, std::size_t, std::size_t) {
            if (seen[group]) return;
            seen[group] = true;
            out_.push_back({keyOf(of + group * 0x9E3779B97F4A7C15), value});
        });
    }
    /// Each pair of concepts that follow one another once: what was done to what, in whichever
    /// words.
    void addConceptPairs(std::uint64_t of, const Tokens& found, float value) {
        std::optional<std::size_t> before;
        std::set<std::size_t> seen;
        concepts_.each(found, [&](std::size_t group, std::size_t, std::size_t) {
            if (before && *before != group) {
                const std::size_t pair = *before * concepts_.count() + group;
                if (seen.insert(pair).second)
                    out_.push_back({keyOf(of + (pair + 1) * 0x9E3779B97F4A7C15), value});
            }
            before = group;
        });
    }
    /// How a long word begins, which endings of number, case and tense leave alone.
    void addStem(std::string_view word, float value) {
        constexpr std::size_t stem = 5;
        if (word.size() > stem) add(kind("stem"), word.substr(0, stem), value);
    }
    /// Ends the block: what was added since the last counts as a vector of this length.
    void endBlock(float length) { features_.blocks.push_back({out_.size(), length}); }

  private:
    const Concepts& concepts_;
    Features& features_;
    std::vector<Feature>& out_;
};

void addSubject(Builder& builder, const Tokens& words) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        builder.add(kind("subject"), words[i], 1);
        builder.add(kind("anywhere"), words[i], 0.5F);
        builder.addStem(words[i], 0.5F);
        if (i + 1 < words.size()) builder.addPair(kind("subject pair"), words[i], words[i + 1], 1);
        if (i + 2 < words.size())
            builder.addPair(kind("subject gap"), words[i], words[i + 2], 0.5F);
    }
    if (!words.empty()) builder.add(kind("subject first"), words[0], 0.7F);
    if (words.size() > 1) builder.add(kind("subject second"), words[1], 0.7F);
    // Pieces of words carry endings and compounds of other languages.
    constexpr std::size_t piece = 5;
    std::string line = " ";
    for (const auto word : words) line.append(word) += ' ';
    for (std::size_t i = 0; i + piece <= line.size(); ++i)
        builder.add(kind("subject piece"), std::string_view(line).substr(i, piece), 0.35F);
    builder.endBlock(1.3F);
}

void addBody(Builder& builder, const Tokens& words) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        const float value = i < 40 ? 1.0F : 0.7F;
        builder.add(kind("body"), words[i], value);
        builder.add(kind("anywhere"), words[i], 0.5F * value);
        builder.addStem(words[i], 0.5F * value);
        if (i + 1 < words.size()) builder.addPair(kind("body pair"), words[i], words[i + 1], value);
        if (i < 3) builder.add(kind("body start"), words[i], 0.7F);
    }
    builder.endBlock(1.3F);
}

bool isPrivateDomain(std::string_view domain) {
    static constexpr std::array<std::string_view, 16> known{
        "gmail.",  "googlemail.", "yahoo.", "hotmail.", "aol.", "outlook.", "comcast.", "me.com",
        "icloud.", "web.de",      "gmx.",   "live.",    "msn.", "mac.com",  "proton",   "verizon."};
    return std::ranges::any_of(known,
                               [&](std::string_view part) { return domain.starts_with(part); });
}

void addSender(Builder& builder, const Sender& sender) {
    const Tokens name = tokens(sender.name, senderTokens);
    const Tokens local = tokens(sender.local, senderTokens);
    for (const auto word : name) builder.add(kind("sender name"), word, 0.6F);
    for (const auto word : local) builder.add(kind("sender local"), word, 1);
    if (name.empty()) builder.add(kind("sender"), "nameless", 0.7F);
    builder.addConcepts(kind("sender name concept"), name, 0.6F);
    builder.addConcepts(kind("sender local concept"), local, 0.6F);

    const auto dots = std::ranges::count(sender.domain, '.');
    if (dots > 0)
        builder.add(kind("top domain"), sender.domain.substr(sender.domain.rfind('.')), 0.4F);
    if (dots > 1)
        builder.add(kind("sub domain"), sender.domain.substr(0, sender.domain.find('.')), 0.6F);
    if (isPrivateDomain(sender.domain)) builder.add(kind("sender"), "private", 0.8F);
    if (std::ranges::count_if(sender.local, ascii::isDigit) >= 3)
        builder.add(kind("sender"), "digits", 0.8F);
    if (sender.local.size() > 18) builder.add(kind("sender"), "long", 0.6F);

    // An address made of its owner's name is a person's.
    if (name.size() >= 2 && name.size() <= 3) {
        const auto echoes = sender.echoes();
        if (echoes > 0) builder.add(kind("sender"), echoes > 1 ? "whole name" : "half name", 1);
        if (name.size() == 2) builder.add(kind("sender"), "two words", 0.4F);
    }
    builder.endBlock(0.7F);
}

struct Shape {
    int letters = 0;
    int capitals = 0;
    int pictures = 0;
    int foreign = 0;

    explicit Shape(std::string_view text) {
        for (const char c : text) {
            letters += ascii::isLetter(c);
            capitals += ascii::isUpper(c);
            pictures += static_cast<unsigned char>(c) == 0xF0;
            foreign += static_cast<unsigned char>(c) >= 0x80;
        }
    }
};

void addFacts(Builder& builder, const MailText& mail, std::string_view subject,
              std::string_view body, const Tokens& subjectWords, const Tokens& bodyWords) {
    const Shape subjectShape(mail.subject);
    const Shape bodyShape(mail.body.substr(0, 700));
    builder.addIf(isReply(subject), "reply");
    builder.addIf(subjectShape.letters > 8 && subjectShape.capitals * 10 > subjectShape.letters * 7,
                  "shouting");
    builder.addIf(subjectShape.letters > 3 && subjectShape.capitals == 0, "lower-case");
    builder.addIf(subjectShape.pictures > 0, "picture");
    builder.addIf(subject.empty(), "no subject");
    builder.addIf(subject.starts_with('"') || subject.starts_with('\''), "quoted subject");
    builder.addIf(subject.starts_with('['), "bracketed subject");
    builder.addIf(subject.ends_with('?'), "question");
    builder.addIf(!subjectWords.empty() && subjectWords.size() <= 2, "short subject");
    builder.addIf(subjectWords.size() >= 9, "long subject");

    builder.addIf(bodyWords.empty(), "no body");
    builder.addIf(!bodyWords.empty() && bodyWords.size() < 15, "short body");
    builder.addIf(bodyWords.size() >= 15 && bodyWords.size() < 60, "middling body");
    builder.addIf(bodyWords.size() >= 100, "long body");
    builder.addIf(bodyShape.foreign > 40, "foreign body");
    builder.addIf(bodyShape.letters > 20 && bodyShape.capitals == 0, "lower-case body");
    const auto links = std::ranges::count(bodyWords, std::string_view("#url"));
    builder.addIf(links == 0, "no link");
    builder.addIf(links == 1, "one link");
    builder.addIf(links >= 3, "many links");
    builder.addIf(contains(body, "wrote:") || contains(body, "original message"), "quotes a mail");
    builder.endBlock(0.9F);
}

}  // namespace

Features FeatureExtractor::extract(const MailText& mail) const {
    const std::string sender = folded(mail.sender);
    const std::string subject = folded(undressed(mail.subject));
    const std::string body = folded(undressed(mail.body));
    const Tokens subjectWords = tokens(subject, subjectTokens);
    const Tokens bodyWords = tokens(body, bodyTokens);

    Features features;
    features.all.reserve(1000);
    Builder builder(concepts_, features);
    addSubject(builder, subjectWords);
    addBody(builder, bodyWords);
    builder.addConcepts(kind("subject concept"), subjectWords, 1);
    builder.addConceptPairs(kind("subject concept pair"), subjectWords, 0.7F);
    builder.endBlock(0.8F);
    builder.addConcepts(kind("body concept"), bodyWords, 1);
    builder.addConceptPairs(kind("body concept pair"), bodyWords, 0.5F);
    builder.endBlock(0.8F);
    addSender(builder, Sender(sender));
    addFacts(builder, mail, subject, body, subjectWords, bodyWords);
    return features;
}

}  // namespace brindlet
