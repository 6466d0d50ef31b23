#include "stores/Rule.h"

#include "base/Json.h"
#include "base/Text.h"
#include "classify/Category.h"

namespace brindlet {
namespace {

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const auto& word : words) {
        if (&word != &words.front()) text += ' ';
        text += word;
    }
    return text;
}

}  // namespace

std::string Rule::id() const {
    return sender + "|" + category.value_or("*") + "|" + joined(templateWords) + "|" +
           std::string(rawValue(scope));
}

std::string Rule::scopeText() const {
    const auto known = category ? fromRaw<Category>(*category) : std::nullopt;
    if (!known) return "Everything this sender ever sends";
    const auto label = lowercased(displayName(*known));
    if (templateWords.empty())
        return "Only their " + label + " - their other mail is sorted normally";
    return "Only their " + label + " saying “" + joined(templateWords) + "” - their other " +
           label + " is sorted normally";
}

void Rule::write(JsonWriter& out) const {
    out.beginObject();
    out.member("sender", sender);
    out.member("category", category);
    out.member("verdict", rawValue(verdict));
    out.member("scope", rawValue(scope));
    out.member("hits", hits);
    out.member("created", created.sinceReference);
    out.member("example", example);
    out.key("template");
    out.beginArray();
    for (const auto& word : templateWords) out.value(word);
    out.endArray();
    out.member("legacy", legacy);
    out.endObject();
}

Rule Rule::read(JsonReader& in) {
    Rule rule;
    std::optional<std::string> sender;
    std::optional<Verdict> verdict;
    std::optional<std::int64_t> hits;
    std::optional<double> created;
    std::optional<std::string> example;
    std::optional<bool> legacy;
    bool hasScope = false;
    in.object([&](std::string_view key) {
        if (key == "sender") {
            sender = in.string();
        } else if (key == "category") {
            if (in.takeNull())
                rule.category.reset();
            else
                rule.category = in.string();
        } else if (key == "verdict") {
            verdict = fromRaw<Verdict>(in.string());
            if (!verdict) in.fail();
        } else if (key == "scope") {
            hasScope = true;
            if (in.takeNull()) return;
            const auto scope = fromRaw<Scope>(in.string());
            if (scope)
                rule.scope = *scope;
            else
                in.fail();
        } else if (key == "hits") {
            hits = in.integer();
        } else if (key == "created") {
            created = in.number();
        } else if (key == "example") {
            example = in.string();
        } else if (key == "template") {
            rule.templateWords.clear();
            if (in.takeNull()) return;
            in.array([&] { rule.templateWords.push_back(in.string()); });
        } else if (key == "legacy") {
            if (in.takeNull())
                legacy.reset();
            else
                legacy = in.boolean();
        }
    });
    if (!sender || !verdict || !hits || !created || !example) {
        in.fail();
        return rule;
    }
    rule.sender = *std::move(sender);
    rule.verdict = *verdict;
    rule.hits = *hits;
    rule.created = {*created};
    rule.example = *std::move(example);
    // Rules from before there were scopes stem from an earlier fault: held back until accepted.
    rule.legacy = legacy.value_or(!hasScope);
    return rule;
}

}  // namespace brindlet
