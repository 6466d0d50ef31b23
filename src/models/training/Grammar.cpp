#include "models/training/Grammar.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>
#include <utility>

#include "base/Text.h"

namespace brindlet::training {
namespace {

/// Calls `line(number, text)` for each line that counts until one gives a problem, which is the
/// result, with the line's number.
template <class F>
std::string eachLine(std::string_view text, F&& line) {
    for (int number = 1; !text.empty(); ++number) {
        const auto end = text.find('\n');
        const std::string_view one = trimBlanksAndNewlines(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (one.empty() || one.front() == '#') continue;
        std::string problem = line(one);
        if (!problem.empty()) return "line " + std::to_string(number) + ": " + problem;
    }
    return {};
}

std::size_t smallNumber(std::string_view text) {
    const auto number = parseInt64(text);
    return number && *number > 0 && *number < 1000 ? static_cast<std::size_t>(*number) : 0;
}

}  // namespace

class Grammar::Expansion {
  public:
    Expansion(const Grammar& grammar, Random& random) : grammar_(grammar), random_(random) {}

    std::string any(const std::vector<Phrase>& phrases) {
        return phrases.empty() ? std::string() : text(phrases[random_.below(phrases.size())]);
    }

    std::string text(const Phrase& phrase) {
        std::string out;
        for (const auto& part : phrase.parts) {
            if (!part.choices.empty())
                out += any(part.choices);
            else if (!part.slot.empty())
                out += changed(slot(part.slot), part.change);
            else
                out += part.text;
        }
        return out;
    }

  private:
    std::string slot(const std::string& name) {
        const WordList& list = grammar_.words_.find(name)->second;
        if (!list.once) return any(list.phrases);
        const auto known = chosen_.find(name);
        if (known != chosen_.end()) return known->second;
        return chosen_[name] = any(list.phrases);
    }

    const Grammar& grammar_;
    Random& random_;
    std::map<std::string, std::string> chosen_;
};

std::string Grammar::unknownSlot(const Phrase& phrase, std::string_view open) const {
    for (const auto& part : phrase.parts) {
        for (const auto& choice : part.choices)
            if (auto found = unknownSlot(choice, open); !found.empty()) return found;
        if (part.slot.empty()) continue;
        const auto list = words_.find(part.slot);
        if (part.slot == open || list == words_.end() || list->second.phrases.empty())
            return part.slot;
    }
    return {};
}

std::string Grammar::addPhrase(std::vector<Phrase>& phrases, std::string_view line,
                               std::string_view open) const {
    Phrase phrase;
    if (!parsePhrase(line, phrase)) return "unbalanced brackets";
    const std::string slot = unknownSlot(phrase, open);
    if (!slot.empty()) return "no list " + slot + " before this";
    phrases.push_back(std::move(phrase));
    return {};
}

std::string Grammar::addWords(std::string_view text) {
    std::string open;
    return eachLine(text, [&](std::string_view line) -> std::string {
        if (!line.starts_with("= ")) {
            if (open.empty()) return "a phrase before the first list";
            return addPhrase(words_.find(open)->second.phrases, line, open);
        }
        return openList(line, open);
    });
}

std::string Grammar::openList(std::string_view line, std::string& open) {
    const auto comma = line.find(", once");
    open = line.substr(2, comma == std::string_view::npos ? comma : comma - 2);
    const auto [list, isNew] = words_.try_emplace(open);
    list->second.once = comma != std::string_view::npos;
    return isNew ? "" : "this list stands already";
}

std::optional<Grammar::Scenario> Grammar::parsedHeading(std::string_view heading) {
    Scenario scenario;
    while (!heading.empty()) {
        const auto comma = heading.find(", ");
        const std::string_view setting = heading.substr(0, comma);
        heading.remove_prefix(comma == std::string_view::npos ? heading.size() : comma + 2);
        const auto blank = setting.find(' ');
        if (blank == std::string_view::npos) return std::nullopt;
        const std::string_view name = setting.substr(0, blank);
        const std::string_view value = setting.substr(blank + 1);
        if (name == "weight") {
            scenario.weight = smallNumber(value);
            if (scenario.weight == 0) return std::nullopt;
        } else if (name == "bodies") {
            const auto dash = value.find('-');
            scenario.fewestBodies = smallNumber(value.substr(0, dash));
            scenario.mostBodies = dash == std::string_view::npos
                                      ? scenario.fewestBodies
                                      : smallNumber(value.substr(dash + 1));
            if (scenario.mostBodies == 0 || scenario.fewestBodies > scenario.mostBodies)
                return std::nullopt;
        } else if (name == "dress" && (value == "plain" || value == "web" || value == "bulk")) {
            scenario.dress = value == "plain" ? Dress::plain
                             : value == "web" ? Dress::web
                                              : Dress::bulk;
        } else if (name == "language") {
            scenario.language = value;
        } else {
            return std::nullopt;
        }
    }
    return scenario;
}

std::string Grammar::addCategory(std::string_view label, std::string_view text) {
    static constexpr std::array<std::pair<std::string_view, std::vector<Phrase> Scenario::*>, 5>
        sections{{
            {"senders:", &Scenario::senders},
            {"subjects:", &Scenario::subjects},
            {"bodies:", &Scenario::bodies},
            {"openings:", &Scenario::openings},
            {"closings:", &Scenario::closings},
        }};
    std::vector<Scenario> scenarios;
    std::vector<Phrase> Scenario::*section = nullptr;
    std::string open;
    std::string problem = eachLine(text, [&](std::string_view line) -> std::string {
        if (line.starts_with("== ")) {
            auto scenario = parsedHeading(line.substr(3));
            if (!scenario) return "not a scenario's heading";
            scenarios.push_back(std::move(*scenario));
            section = nullptr;
            open.clear();
            return {};
        }
        if (line.starts_with("= ")) {
            section = nullptr;
            return openList(line, open);
        }
        for (const auto& [name, phrases] : sections) {
            if (line != name) continue;
            section = phrases;
            open.clear();
            return scenarios.empty() ? "a section before the first scenario" : "";
        }
        if (!open.empty()) return addPhrase(words_.find(open)->second.phrases, line, open);
        return section ? addPhrase(scenarios.back().*section, line, {})
                       : "a phrase outside every section";
    });
    if (!problem.empty()) return problem;
    if (scenarios.empty()) return "no scenario";
    for (const auto& scenario : scenarios)
        if (scenario.senders.empty() || scenario.subjects.empty() ||
            scenario.bodies.size() < scenario.mostBodies)
            return "a scenario with too few phrases";
    auto& known = categories_[std::string(label)];
    std::ranges::move(scenarios, std::back_inserter(known));
    return {};
}

Grammar::Breadth Grammar::breadth(std::string_view label) const {
    Breadth breadth;
    for (const auto& scenario : categories_.find(label)->second) {
        breadth.patterns += scenario.subjects.size();
        breadth.languages.insert(scenario.language);
    }
    return breadth;
}

SampleMail Grammar::make(std::string_view label, Random& random, Dress& dress) const {
    const auto& scenarios = categories_.find(label)->second;
    const auto total = std::accumulate(
        scenarios.begin(), scenarios.end(), std::size_t{0},
        [](std::size_t sum, const Scenario& scenario) { return sum + scenario.weight; });
    std::size_t drawn = random.below(total);
    auto scenario = scenarios.begin();
    for (; drawn >= scenario->weight; ++scenario) drawn -= scenario->weight;
    dress = scenario->dress;

    Expansion expansion(*this, random);
    SampleMail mail;
    mail.sender = expansion.any(scenario->senders);
    mail.subject = expansion.any(scenario->subjects);

    const auto append = [&](const std::string& text) {
        if (text.empty()) return;
        if (!mail.body.empty()) mail.body += ' ';
        mail.body += text;
    };
    append(expansion.any(scenario->openings));
    std::vector<std::size_t> order(scenario->bodies.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const std::size_t wanted =
        scenario->fewestBodies + random.below(scenario->mostBodies - scenario->fewestBodies + 1);
    for (std::size_t i = 0; i < wanted; ++i) {
        std::swap(order[i], order[i + random.below(order.size() - i)]);
        append(expansion.text(scenario->bodies[order[i]]));
    }
    append(expansion.any(scenario->closings));
    return mail;
}

}  // namespace brindlet::training
