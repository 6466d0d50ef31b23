#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "Application.h"
#include "OpenFiles.h"
#include "Operators.h"
#include "Syntax.h"

namespace brindlet::osascript {

/// Where a script broke off, and why.
struct Failure {
    ScriptError error;
    Range range;
};

/// Runs one script, once. One thread; the surroundings must outlive it.
class Interpreter {
  public:
    explicit Interpreter(Surroundings& surroundings) : surroundings_(surroundings) {}

    /// The script's result as the host prints it, or none when it has no result. That is what
    /// `return` gives, or else the value of the last expression that stands as a statement.
    std::variant<std::optional<std::string>, Failure> run(
        const Script& script, const std::vector<std::string>& arguments);

  private:
    /// How a statement ended. `failed` goes with `error_`.
    enum class Flow { on, exitRepeat, returned, failed };

    Flow run(const Block& block);
    Flow run(const Statement& statement);

    Flow execute(const Statement::Evaluate& statement);
    Flow execute(const Statement::SetVariable& statement);
    Flow execute(const Statement::SetDelimiters& statement);
    Flow execute(const Statement::Append& statement);
    Flow execute(const Statement::SetProperty& statement);
    Flow execute(const Statement::SetEndOfFile& statement);
    Flow execute(const Statement::If& statement);
    Flow execute(const Statement::RepeatIn& statement);
    Flow execute(const Statement::RepeatFrom& statement);
    Flow execute(const Statement::ExitRepeat& statement);
    Flow execute(const Statement::Try& statement);
    Flow execute(const Statement::TellApplication& statement);
    Flow execute(const Statement::TellProcess& statement);
    Flow execute(const Statement::Return& statement);
    Flow execute(const Statement::Raise& statement);
    Flow execute(const Statement::Delay& statement);
    Flow execute(const Statement::Activate& statement);
    Flow execute(const Statement::Click& statement);
    Flow execute(const Statement::Move& statement);
    Flow execute(const Statement::Make& statement);
    Flow execute(const Statement::CloseFile& statement);
    Flow execute(const Statement::WriteFile& statement);

    /// None, with `error_` set, when it raises one.
    std::optional<Value> evaluate(const Expression& expression);
    std::optional<Value> evaluate(const Expression::Literal& literal);
    std::optional<Value> evaluate(const Expression::Variable& variable);
    std::optional<Value> evaluate(const Expression::ListOf& list);
    std::optional<Value> evaluate(const Expression::RecordOf& record);
    std::optional<Value> evaluate(const Expression::Not& negation);
    std::optional<Value> evaluate(const Expression::Binary& binary);
    std::optional<Value> evaluate(const Expression::Coercion& coercion);
    std::optional<Value> evaluate(const Expression::Chain& chain);
    std::optional<Value> evaluate(const Expression::Count& count);
    std::optional<Value> evaluate(const Expression::FileAt& file);
    std::optional<Value> evaluate(const Expression::OpenFile& file);
    std::optional<Value> evaluate(const Expression::ReadFile& file);

    /// One link of a chain, from an application's object or from a value of the script's own.
    std::optional<Value> stepInto(const Step& step, const Value& selector, const Object& container);
    std::optional<Value> stepLocally(const Step& step, const Value& selector, const Value& base);
    std::optional<Value> propertyOfEach(const std::string& property, const List& objects);

    std::optional<std::string> text(const Expression& expression);
    std::optional<std::int64_t> integer(const Expression& expression);
    std::optional<bool> boolean(const Expression& expression);
    /// An application's object, where a command needs one.
    std::optional<Object> object(const Expression& expression);

    /// The value, or none with its error noted.
    template <class T>
    std::optional<T> noted(Answer<T> answer) {
        if (auto* const error = std::get_if<ScriptError>(&answer)) {
            error_ = std::move(*error);
            return std::nullopt;
        }
        return std::move(*std::get_if<T>(&answer));
    }
    std::nullopt_t raise(ScriptError error) {
        error_ = std::move(error);
        return std::nullopt;
    }
    /// The application that is being told, once it has taken one more request; null with an error.
    Application* told();
    bool request(Application& application);
    Flow tell(Object target, const Block& body);
    /// How a statement ended that raised the error, or none.
    Flow ended(std::optional<ScriptError> error);

    Surroundings& surroundings_;
    std::map<std::string, Value, std::less<>> variables_;
    std::string delimiters_;
    OpenFiles files_;
    Containment containment_;
    /// What is being told, the innermost last.
    std::vector<Object> targets_;
    std::optional<Value> result_;
    ScriptError error_;
    /// Where it was raised; none until the statement that raised it has ended.
    std::optional<Range> failedAt_;
};

}  // namespace brindlet::osascript
