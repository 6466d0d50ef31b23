#include "Value.h"

#include "Application.h"

namespace brindlet::osascript {
namespace {

std::string quoted(const std::string& text) {
    return '"' + text + '"';
}

struct Describer {
    std::string operator()(Missing) const { return "missing value"; }
    std::string operator()(bool flag) const { return flag ? "true" : "false"; }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(const Text& text) const { return quoted(text.get()); }
    std::string operator()(const List& list) const {
        std::string all = "{";
        for (const Value& item : *list) all.append(all.size() > 1 ? ", " : "") += described(item);
        return all + '}';
    }
    std::string operator()(const Record& record) const {
        std::string all = "{";
        for (const auto& [key, value] : *record)
            (all.append(all.size() > 1 ? ", " : "").append(key) += ':') += described(value);
        return all + '}';
    }
    std::string operator()(const ItemReference& reference) const {
        return described(contents(Value(reference)));
    }
    std::string operator()(const ClassName& name) const { return name.name; }
    std::string operator()(const FileName& name) const { return "file " + quoted(name.path); }
    std::string operator()(const Object& object) const {
        return object.application->describe(object);
    }
};

}  // namespace

Value contents(const Value& value) {
    const auto* const reference = value.as<ItemReference>();
    if (!reference) return value;
    const auto& items = *reference->list;
    return reference->index < items.size() ? contents(items[reference->index]) : Value();
}

std::string described(const Value& value) {
    return std::visit(Describer{}, value.is);
}

ScriptError cannotGet(const std::string& what) {
    return {"Can’t get " + what + '.', errors::cannotGet};
}

ScriptError cannotMake(const Value& value, std::string_view type) {
    return {"Can’t make " + described(value) + " into type " + std::string(type) + '.',
            errors::cannotCoerce};
}

}  // namespace brindlet::osascript
