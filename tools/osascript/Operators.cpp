#include "Operators.h"

#include <algorithm>

#include "base/Graphemes.h"
#include "base/Text.h"

namespace brindlet::osascript {
namespace {

/// Both made numbers, or the error of the first that is none.
Answer<std::pair<std::int64_t, std::int64_t>> integersOf(const Value& left, const Value& right) {
    auto first = integerOf(left);
    if (auto* const error = std::get_if<ScriptError>(&first)) return std::move(*error);
    auto second = integerOf(right);
    if (auto* const error = std::get_if<ScriptError>(&second)) return std::move(*error);
    return std::pair(std::get<std::int64_t>(first), std::get<std::int64_t>(second));
}

bool equalTexts(const std::string& left, const std::string& right) {
    return left == right || lowercased(left) == lowercased(right);
}

bool equalLists(const std::vector<Value>& left, const std::vector<Value>& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), equal);
}

bool listContains(const std::vector<Value>& whole, const std::vector<Value>& part) {
    return std::search(whole.begin(), whole.end(), part.begin(), part.end(), equal) !=
               whole.end() ||
           part.empty();
}

std::vector<Value> asList(const Value& value) {
    const auto* const list = value.as<List>();
    return list ? **list : std::vector<Value>{value};
}

}  // namespace

Answer<std::string> textOf(const Value& value, const std::string& delimiters) {
    const Value what = contents(value);
    if (const auto* text = what.as<Text>()) return text->get();
    if (const auto* list = what.as<List>()) {
        std::string all;
        for (std::size_t i = 0; i < (*list)->size(); ++i) {
            auto item = textOf((**list)[i], delimiters);
            if (std::holds_alternative<ScriptError>(item)) return item;
            all.append(i > 0 ? delimiters : "") += std::get<std::string>(item);
        }
        return all;
    }
    if (const auto* file = what.as<FileName>()) return file->path;
    if (what.as<Record>() || what.as<Object>()) return cannotMake(what, "text");
    return described(what);
}

Answer<std::int64_t> integerOf(const Value& value) {
    const Value what = contents(value);
    if (const auto* number = what.as<std::int64_t>()) return *number;
    if (const auto* text = what.as<Text>())
        if (const auto number = parseInt64(trimBlanks(text->get()))) return *number;
    return cannotMake(what, "integer");
}

Answer<bool> booleanOf(const Value& value) {
    const Value what = contents(value);
    if (const auto* flag = what.as<bool>()) return *flag;
    return cannotMake(what, "boolean");
}

bool equal(const Value& left, const Value& right) {
    const auto* const reference = left.as<ItemReference>();
    const auto* const other = right.as<ItemReference>();
    if (reference || other)
        return reference && other && reference->list == other->list &&
               reference->index == other->index;
    if (left.is.index() != right.is.index()) return false;
    if (const auto* text = left.as<Text>()) return equalTexts(text->get(), right.as<Text>()->get());
    if (const auto* list = left.as<List>()) return equalLists(**list, **right.as<List>());
    if (const auto* name = left.as<ClassName>()) return name->name == right.as<ClassName>()->name;
    if (const auto* file = left.as<FileName>()) return file->path == right.as<FileName>()->path;
    if (const auto* record = left.as<Record>()) return *record == *right.as<Record>();
    if (const auto* object = left.as<Object>()) return *object == *right.as<Object>();
    if (const auto* flag = left.as<bool>()) return *flag == *right.as<bool>();
    if (const auto* number = left.as<std::int64_t>()) return *number == *right.as<std::int64_t>();
    return true;
}

Answer<Value> concatenated(const Value& left, const Value& right, const std::string& delimiters) {
    const Value start = contents(left);
    const Value rest = contents(right);
    if (const auto* text = start.as<Text>()) {
        auto added = textOf(rest, delimiters);
        if (auto* const error = std::get_if<ScriptError>(&added)) return std::move(*error);
        return Value::text(text->get() + std::get<std::string>(added));
    }
    std::vector<Value> items = asList(start);
    const std::vector<Value> added = asList(rest);
    items.insert(items.end(), added.begin(), added.end());
    return Value::list(std::move(items));
}

Answer<Value> sum(const Value& left, const Value& right) {
    auto both = integersOf(left, right);
    if (auto* const error = std::get_if<ScriptError>(&both)) return std::move(*error);
    const auto [one, other] = std::get<0>(both);
    std::int64_t result = 0;
    if (__builtin_add_overflow(one, other, &result))
        return ScriptError{"The result of a numeric operation was too large.",
                           errors::numberTooLarge};
    return Value(result);
}

Answer<Value> remainder(const Value& left, const Value& right) {
    auto both = integersOf(left, right);
    if (auto* const error = std::get_if<ScriptError>(&both)) return std::move(*error);
    const auto [one, other] = std::get<0>(both);
    if (other == 0)
        return ScriptError{"Can’t divide " + std::to_string(one) + " by zero.",
                           errors::divisionByZero};
    return Value(other == -1 ? std::int64_t{0} : one % other);
}

std::vector<Value> textItems(const std::string& text, const std::string& delimiters) {
    std::vector<Value> items;
    std::string_view rest = text;
    if (delimiters.empty() && !rest.empty()) {
        while (!rest.empty()) {
            const std::size_t size = graphemeLength(rest);
            items.push_back(Value::text(std::string(rest.substr(0, size))));
            rest.remove_prefix(size);
        }
        return items;
    }
    for (std::size_t end = 0; (end = rest.find(delimiters)) != std::string_view::npos;) {
        if (delimiters.empty()) break;
        items.push_back(Value::text(std::string(rest.substr(0, end))));
        rest.remove_prefix(end + delimiters.size());
    }
    items.push_back(Value::text(std::string(rest)));
    return items;
}

Answer<bool> Containment::contains(const Value& whole, const Value& part,
                                   const std::string& delimiters) {
    const Value where = contents(whole);
    const Value what = contents(part);
    if (const auto* list = where.as<List>()) return listContains(**list, asList(what));
    const auto* const text = where.as<Text>();
    if (!text) return cannotMake(where, "list");
    auto wanted = textOf(what, delimiters);
    if (auto* const error = std::get_if<ScriptError>(&wanted)) return std::move(*error);
    if (last_ != text->shared) {
        last_ = text->shared;
        lowered_ = lowercased(*last_);
    }
    return lowered_.find(lowercased(std::get<std::string>(wanted))) != std::string::npos;
}

}  // namespace brindlet::osascript
