#include "Interpreter.h"
#include "base/Graphemes.h"

namespace brindlet::osascript {
namespace {

/// The element that a step asked for and nobody has.
std::string described(const Step& step, const Value& selector) {
    const std::string id = step.kind == Step::Kind::withId ? " id " : " ";
    return step.word + id + osascript::described(selector);
}

std::string_view classOf(const Value& value) {
    struct Namer {
        std::string_view operator()(bool) const { return "boolean"; }
        std::string_view operator()(std::int64_t) const { return "integer"; }
        std::string_view operator()(const Text&) const { return "text"; }
        std::string_view operator()(const List&) const { return "list"; }
        std::string_view operator()(const Record&) const { return "record"; }
        std::string_view operator()(const FileName&) const { return "file"; }
        std::string_view operator()(const Object& object) const { return object.kind; }
        std::string_view operator()(const ItemReference&) const { return "reference"; }
        std::string_view operator()(const ClassName&) const { return "class"; }
        std::string_view operator()(Missing) const { return "class"; }
    };
    return std::visit(Namer{}, value.is);
}

Value listOf(const std::vector<Object>& objects) {
    return Value::list({objects.begin(), objects.end()});
}

}  // namespace

std::optional<Value> Interpreter::evaluate(const Expression& expression) {
    return std::visit([this](const auto& what) { return evaluate(what); }, expression.is);
}

std::optional<Value> Interpreter::evaluate(const Expression::Literal& literal) {
    return literal.value;
}

std::optional<Value> Interpreter::evaluate(const Expression::Variable& variable) {
    const auto found = variables_.find(variable.name);
    if (found != variables_.end()) return found->second;
    return raise({"The variable " + variable.name + " is not defined.", errors::notDefined});
}

std::optional<Value> Interpreter::evaluate(const Expression::ListOf& list) {
    std::vector<Value> items;
    for (const Expression& item : list.items) {
        auto value = evaluate(item);
        if (!value) return std::nullopt;
        items.push_back(contents(*value));
    }
    return Value::list(std::move(items));
}

std::optional<Value> Interpreter::evaluate(const Expression::RecordOf& record) {
    std::map<std::string, Value, std::less<>> fields;
    for (const auto& [key, expression] : record.fields) {
        auto value = evaluate(expression);
        if (!value) return std::nullopt;
        fields.insert_or_assign(key, contents(*value));
    }
    return Value::record(std::move(fields));
}

std::optional<Value> Interpreter::evaluate(const Expression::Not& negation) {
    const auto holds = boolean(*negation.operand);
    if (!holds) return std::nullopt;
    return Value(!*holds);
}

std::optional<Value> Interpreter::evaluate(const Expression::Binary& binary) {
    if (binary.what == Operator::both) {
        const auto first = boolean(*binary.left);
        if (!first) return std::nullopt;
        if (!*first) return Value(false);
        const auto second = boolean(*binary.right);
        return second ? std::optional(Value(*second)) : std::nullopt;
    }
    const auto left = evaluate(*binary.left);
    if (!left) return std::nullopt;
    const auto right = evaluate(*binary.right);
    if (!right) return std::nullopt;
    switch (binary.what) {
        case Operator::add:
            return noted(sum(*left, *right));
        case Operator::modulo:
            return noted(remainder(*left, *right));
        case Operator::concatenate:
            return noted(concatenated(*left, *right, delimiters_));
        case Operator::equals:
            return Value(equal(*left, *right));
        case Operator::differs:
            return Value(!equal(*left, *right));
        case Operator::contains:
        case Operator::containsNot: {
            const auto found = noted(containment_.contains(*left, *right, delimiters_));
            if (!found) return std::nullopt;
            return Value(*found == (binary.what == Operator::contains));
        }
        case Operator::greater:
        case Operator::atLeast: {
            const auto first = noted(integerOf(*left));
            if (!first) return std::nullopt;
            const auto second = noted(integerOf(*right));
            if (!second) return std::nullopt;
            return Value(binary.what == Operator::greater ? *first > *second : *first >= *second);
        }
        case Operator::both:
            break;
    }
    return std::nullopt;
}

std::optional<Value> Interpreter::evaluate(const Expression::Coercion& coercion) {
    if (coercion.type == "integer") {
        const auto number = integer(*coercion.operand);
        return number ? std::optional(Value(*number)) : std::nullopt;
    }
    auto made = text(*coercion.operand);
    return made ? std::optional(Value::text(std::move(*made))) : std::nullopt;
}

std::optional<Value> Interpreter::evaluate(const Expression::Chain& chain) {
    std::optional<Value> base;
    if (chain.base)
        base = evaluate(*chain.base);
    else if (!targets_.empty())
        base = Value(targets_.back());
    else
        return raise(cannotGet(chain.steps.back().word));
    if (!base) return std::nullopt;

    std::vector<Value> selectors;
    for (const Step& step : chain.steps) {
        auto selector = step.selector ? evaluate(*step.selector) : Value();
        if (!selector) return std::nullopt;
        selectors.push_back(contents(*selector));
    }

    Value current = contents(*base);
    bool requested = false;
    bool many = false;
    for (std::size_t i = chain.steps.size(); i-- > 0;) {
        const Step& step = chain.steps[i];
        const auto* const object = current.as<Object>();
        if (object && !requested) {
            if (!request(*object->application)) return std::nullopt;
            requested = true;
        }
        std::optional<Value> next;
        if (object)
            next = stepInto(step, selectors[i], *object);
        else if (many && step.kind == Step::Kind::property)
            next = propertyOfEach(step.word, *current.as<List>());
        else
            next = stepLocally(step, selectors[i], current);
        if (!next) return std::nullopt;
        many = object && step.kind == Step::Kind::every;
        current = std::move(*next);
    }
    return current;
}

std::optional<Value> Interpreter::stepInto(const Step& step, const Value& selector,
                                           const Object& container) {
    Application& application = *container.application;
    std::optional<Object> one;
    switch (step.kind) {
        case Step::Kind::property:
            if (step.word == "class") return Value(ClassName{std::string(container.kind)});
            return noted(application.property(container, step.word));
        case Step::Kind::every: {
            if (step.filter.empty()) {
                const auto all = noted(application.elements(container, step.word));
                return all ? std::optional(listOf(*all)) : std::nullopt;
            }
            const auto wanted = noted(textOf(selector, delimiters_));
            if (!wanted) return std::nullopt;
            const auto found =
                noted(application.matching(container, step.word, step.filter, *wanted));
            return found ? std::optional(listOf(*found)) : std::nullopt;
        }
        case Step::Kind::withId:
        case Step::Kind::one: {
            const auto* const number = selector.as<std::int64_t>();
            const auto* const name = selector.as<Text>();
            if (number && step.kind == Step::Kind::withId)
                one = application.withId(container, step.word, *number);
            else if (number)
                one = application.numbered(container, step.word, *number);
            else if (name && step.kind == Step::Kind::one)
                one = application.named(container, step.word, name->get());
            break;
        }
    }
    if (one) return Value(*one);
    std::string what = described(step, selector);
    if (!container.kind.empty()) what += " of " + application.describe(container);
    return raise(errorOf(application, cannotGet(what).text, errors::cannotGet));
}

std::optional<Value> Interpreter::stepLocally(const Step& step, const Value& selector,
                                              const Value& base) {
    const auto* const list = base.as<List>();
    const auto* const text = base.as<Text>();
    if (step.kind == Step::Kind::property && step.word == "class")
        return Value(ClassName{std::string(classOf(base))});
    if (step.kind == Step::Kind::property && step.word == "length" && (list || text))
        return Value(
            static_cast<std::int64_t>(list ? (*list)->size() : graphemeCount(text->get())));
    if (step.kind == Step::Kind::every && step.word == "text item") {
        const auto whole = noted(textOf(base, delimiters_));
        return whole ? std::optional(Value::list(textItems(*whole, delimiters_))) : std::nullopt;
    }
    const auto* const number = selector.as<std::int64_t>();
    if (step.kind == Step::Kind::one && step.word == "item" && list && number && *number >= 1 &&
        static_cast<std::size_t>(*number) <= (*list)->size())
        return contents((**list)[static_cast<std::size_t>(*number) - 1]);
    const std::string what =
        step.kind == Step::Kind::property ? step.word : described(step, selector);
    return raise(cannotGet(what + " of " + osascript::described(base)));
}

std::optional<Value> Interpreter::propertyOfEach(const std::string& property, const List& objects) {
    std::vector<Value> values;
    values.reserve(objects->size());
    for (const Value& value : *objects) {
        const Object& object = *value.as<Object>();
        auto one = noted(object.application->property(object, property));
        if (!one) return std::nullopt;
        values.push_back(std::move(*one));
    }
    return Value::list(std::move(values));
}

std::optional<Value> Interpreter::evaluate(const Expression::Count& count) {
    const auto counted = evaluate(*count.of);
    if (!counted) return std::nullopt;
    const Value what = contents(*counted);
    if (const auto* list = what.as<List>())
        return Value(static_cast<std::int64_t>((*list)->size()));
    if (const auto* text = what.as<Text>())
        return Value(static_cast<std::int64_t>(graphemeCount(text->get())));
    return raise(cannotMake(what, "list"));
}

std::optional<Value> Interpreter::evaluate(const Expression::FileAt& file) {
    auto path = text(*file.path);
    return path ? std::optional(Value(FileName{std::move(*path)})) : std::nullopt;
}

std::optional<Value> Interpreter::evaluate(const Expression::OpenFile& file) {
    const auto path = text(*file.file);
    if (!path) return std::nullopt;
    const auto number = noted(files_.open(*path, file.forWriting));
    return number ? std::optional(Value(*number)) : std::nullopt;
}

std::optional<Value> Interpreter::evaluate(const Expression::ReadFile& file) {
    const auto number = integer(*file.file);
    if (!number) return std::nullopt;
    auto content = noted(files_.read(*number));
    return content ? std::optional(Value::text(std::move(*content))) : std::nullopt;
}

std::optional<std::string> Interpreter::text(const Expression& expression) {
    const auto value = evaluate(expression);
    return value ? noted(textOf(*value, delimiters_)) : std::nullopt;
}

std::optional<std::int64_t> Interpreter::integer(const Expression& expression) {
    const auto value = evaluate(expression);
    return value ? noted(integerOf(*value)) : std::nullopt;
}

std::optional<bool> Interpreter::boolean(const Expression& expression) {
    const auto value = evaluate(expression);
    return value ? noted(booleanOf(*value)) : std::nullopt;
}

std::optional<Object> Interpreter::object(const Expression& expression) {
    const auto value = evaluate(expression);
    if (!value) return std::nullopt;
    const Value what = contents(*value);
    if (const auto* object = what.as<Object>()) return *object;
    return raise(
        {osascript::described(what) + " doesn’t understand this message.", errors::notUnderstood});
}

}  // namespace brindlet::osascript
