#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/Date.h"
#include "base/EnumInfo.h"

namespace brindlet {

class JsonReader;
class JsonWriter;

/// A decision, made or learned, about mail from one sender, optionally narrowed to one category or
/// one subject pattern.
struct Rule {
    enum class Verdict { junk, keep };
    enum class Scope { session, always };

    /// An address or a bare domain, lower case.
    std::string sender;
    /// Raw text of the category that narrows the rule; kept as read, known or not.
    std::optional<std::string> category;
    Verdict verdict = Verdict::keep;
    Scope scope = Scope::always;
    /// How many times the same decision was made.
    std::int64_t hits = 0;
    Date created;
    /// What the person saw when the rule was made.
    std::string example;
    /// Words that must stand together in a subject; empty for no pattern. In the file: "template".
    std::vector<std::string> templateWords;
    /// Held back until the person accepts it.
    bool legacy = false;

    friend bool operator==(const Rule&, const Rule&) = default;

    /// Two rules with the same id are the same rule.
    std::string id() const;
    /// What the rule covers, as a sentence.
    std::string scopeText() const;

    void write(JsonWriter& out) const;
    /// Reads one object; a misstep fails the reader.
    static Rule read(JsonReader& in);
};

template <>
struct EnumInfo<Rule::Verdict> {
    static constexpr std::array<std::pair<Rule::Verdict, std::string_view>, 2> all{{
        {Rule::Verdict::junk, "junk"},
        {Rule::Verdict::keep, "keep"},
    }};
};

template <>
struct EnumInfo<Rule::Scope> {
    static constexpr std::array<std::pair<Rule::Scope, std::string_view>, 2> all{{
        {Rule::Scope::session, "session"},
        {Rule::Scope::always, "always"},
    }};
};

}  // namespace brindlet
