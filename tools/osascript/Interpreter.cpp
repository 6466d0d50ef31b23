#include "Interpreter.h"

namespace brindlet::osascript {

std::variant<std::optional<std::string>, Failure> Interpreter::run(
    const Script& script, const std::vector<std::string>& arguments) {
    if (!script.argumentsName.empty()) {
        std::vector<Value> values;
        for (const std::string& argument : arguments) values.push_back(Value::text(argument));
        variables_[script.argumentsName] = Value::list(std::move(values));
    }
    if (run(script.body) == Flow::failed) return Failure{error_, failedAt_.value_or(Range{})};
    if (!result_) return std::optional<std::string>();
    auto printed = textOf(*result_, ", ");
    if (auto* const error = std::get_if<ScriptError>(&printed)) return Failure{*error, {}};
    return std::optional(std::get<std::string>(std::move(printed)));
}

Interpreter::Flow Interpreter::run(const Block& block) {
    for (const Statement& statement : block)
        if (const Flow flow = run(statement); flow != Flow::on) return flow;
    return Flow::on;
}

Interpreter::Flow Interpreter::run(const Statement& statement) {
    const Flow flow = std::visit([this](const auto& what) { return execute(what); }, statement.is);
    if (flow == Flow::failed && !failedAt_) failedAt_ = statement.range;
    return flow;
}

Interpreter::Flow Interpreter::execute(const Statement::Evaluate& statement) {
    result_ = evaluate(statement.value);
    return result_ ? Flow::on : Flow::failed;
}

Interpreter::Flow Interpreter::execute(const Statement::SetVariable& statement) {
    auto value = evaluate(statement.value);
    if (!value) return Flow::failed;
    variables_.insert_or_assign(statement.name, std::move(*value));
    return Flow::on;
}

Interpreter::Flow Interpreter::execute(const Statement::SetDelimiters& statement) {
    auto delimiters = text(statement.value);
    if (!delimiters) return Flow::failed;
    delimiters_ = std::move(*delimiters);
    return Flow::on;
}

Interpreter::Flow Interpreter::execute(const Statement::Append& statement) {
    auto value = evaluate(statement.value);
    if (!value) return Flow::failed;
    const auto target = evaluate(statement.list);
    if (!target) return Flow::failed;
    const Value list = contents(*target);
    if (!list.as<List>())
        return ended(ScriptError{"Can’t set end of " + described(list) + '.', errors::cannotSet});
    (*list.as<List>())->push_back(std::move(*value));
    return Flow::on;
}

Interpreter::Flow Interpreter::execute(const Statement::SetProperty& statement) {
    const auto value = evaluate(statement.value);
    if (!value) return Flow::failed;
    const auto target = object(statement.object);
    if (!target || !request(*target->application)) return Flow::failed;
    return ended(target->application->setProperty(*target, statement.property, contents(*value)));
}

Interpreter::Flow Interpreter::execute(const Statement::SetEndOfFile& statement) {
    const auto file = integer(statement.file);
    if (!file) return Flow::failed;
    const auto size = integer(statement.size);
    if (!size) return Flow::failed;
    return ended(files_.setEnd(*file, *size));
}

Interpreter::Flow Interpreter::execute(const Statement::If& statement) {
    for (const auto& [condition, body] : statement.arms) {
        if (!condition) return run(body);
        const auto holds = boolean(*condition);
        if (!holds) return Flow::failed;
        if (*holds) return run(body);
    }
    return Flow::on;
}

Interpreter::Flow Interpreter::execute(const Statement::RepeatIn& statement) {
    const auto evaluated = evaluate(statement.items);
    if (!evaluated) return Flow::failed;
    const Value items = contents(*evaluated);
    const auto* const list = items.as<List>();
    if (!list) return ended(cannotMake(items, "list"));
    for (std::size_t i = 0; i < (*list)->size(); ++i) {
        variables_.insert_or_assign(statement.variable, Value(ItemReference{*list, i}));
        const Flow flow = run(statement.body);
        if (flow == Flow::exitRepeat) break;
        if (flow != Flow::on) return flow;
    }
    return Flow::on;
}

Interpreter::Flow Interpreter::execute(const Statement::RepeatFrom& statement) {
    const auto first = integer(statement.first);
    if (!first) return Flow::failed;
    const auto last = integer(statement.last);
    if (!last) return Flow::failed;
    for (std::int64_t i = *first; i <= *last; ++i) {
        variables_.insert_or_assign(statement.variable, Value(i));
        const Flow flow = run(statement.body);
        if (flow == Flow::exitRepeat) break;
        if (flow != Flow::on) return flow;
    }
    return Flow::on;
}

Interpreter::Flow Interpreter::execute(const Statement::ExitRepeat&) {
    return Flow::exitRepeat;
}

Interpreter::Flow Interpreter::execute(const Statement::Try& statement) {
    const Flow flow = run(statement.body);
    if (flow != Flow::failed) return flow;
    failedAt_.reset();
    return run(statement.onError);
}

Interpreter::Flow Interpreter::execute(const Statement::TellApplication& statement) {
    const auto name = text(statement.name);
    if (!name) return Flow::failed;
    Application* const application = surroundings_.application(*name);
    if (application) return tell({application, {}, 0, 0}, statement.body);
    return ended(ScriptError{"Application “" + *name + "” isn’t running.", errors::notRunning});
}

Interpreter::Flow Interpreter::execute(const Statement::TellProcess& statement) {
    const auto name = text(statement.name);
    if (!name) return Flow::failed;
    Application* const application = told();
    if (!application) return Flow::failed;
    const auto process = application->named(targets_.back(), "process", *name);
    if (process) return tell(*process, statement.body);
    return ended(
        errorOf(*application, cannotGet("process \"" + *name + '"').text, errors::cannotGet));
}

Interpreter::Flow Interpreter::tell(Object target, const Block& body) {
    targets_.push_back(target);
    const Flow flow = run(body);
    targets_.pop_back();
    return flow;
}

Interpreter::Flow Interpreter::execute(const Statement::Return& statement) {
    result_ = evaluate(statement.value);
    return result_ ? Flow::returned : Flow::failed;
}

Interpreter::Flow Interpreter::execute(const Statement::Raise& statement) {
    auto message = text(statement.text);
    if (!message) return Flow::failed;
    return ended(ScriptError{std::move(*message), errors::raisedByScript});
}

Interpreter::Flow Interpreter::execute(const Statement::Delay& statement) {
    const auto seconds = integer(statement.seconds);
    if (!seconds) return Flow::failed;
    surroundings_.delay(*seconds);
    return Flow::on;
}

Interpreter::Flow Interpreter::execute(const Statement::Activate&) {
    Application* const application = told();
    return application ? ended(application->activate()) : Flow::failed;
}

Interpreter::Flow Interpreter::execute(const Statement::Click& statement) {
    const auto target = object(statement.object);
    if (!target || !request(*target->application)) return Flow::failed;
    return ended(target->application->click(*target));
}

Interpreter::Flow Interpreter::execute(const Statement::Move& statement) {
    const auto what = object(statement.object);
    if (!what) return Flow::failed;
    const auto destination = object(statement.destination);
    if (!destination || !request(*what->application)) return Flow::failed;
    return ended(what->application->move(*what, *destination));
}

Interpreter::Flow Interpreter::execute(const Statement::Make& statement) {
    std::optional<std::string> name;
    if (statement.properties) {
        const auto properties = evaluate(*statement.properties);
        if (!properties) return Flow::failed;
        const auto* const record = properties->as<Record>();
        const auto field = record ? (*record)->find("name") : decltype((*record)->end()){};
        if (record && field != (*record)->end()) {
            name = noted(textOf(field->second, delimiters_));
            if (!name) return Flow::failed;
        }
    }
    std::optional<Object> at;
    if (statement.at && !(at = object(*statement.at))) return Flow::failed;
    Application* const application = told();
    if (!application) return Flow::failed;
    result_ = noted(application->make(statement.kind, name, at));
    return result_ ? Flow::on : Flow::failed;
}

Interpreter::Flow Interpreter::execute(const Statement::CloseFile& statement) {
    const auto file = integer(statement.file);
    return file ? ended(files_.close(*file)) : Flow::failed;
}

Interpreter::Flow Interpreter::execute(const Statement::WriteFile& statement) {
    const auto what = text(statement.text);
    if (!what) return Flow::failed;
    const auto file = integer(statement.file);
    return file ? ended(files_.write(*file, *what)) : Flow::failed;
}

Interpreter::Flow Interpreter::ended(std::optional<ScriptError> error) {
    if (!error) return Flow::on;
    raise(std::move(*error));
    return Flow::failed;
}

bool Interpreter::request(Application& application) {
    auto error = application.event();
    if (error) raise(std::move(*error));
    return !error;
}

Application* Interpreter::told() {
    if (targets_.empty()) {
        raise({"Nobody is told to do this.", errors::notUnderstood});
        return nullptr;
    }
    Application* const application = targets_.back().application;
    return request(*application) ? application : nullptr;
}

}  // namespace brindlet::osascript
