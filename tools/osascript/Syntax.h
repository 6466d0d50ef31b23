#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "Lexer.h"
#include "Value.h"

/// A script as the parser understands it.
namespace brindlet::osascript {

struct Expression;
using ExpressionPtr = std::unique_ptr<Expression>;

/// One link of `name of every mailbox of account 1`.
struct Step {
    enum class Kind {
        /// `name`: of each, when the link before it gives many.
        property,
        /// `every mailbox`, `mailboxes`.
        every,
        /// `account 1`, `mailbox "Junk"`: by number or by name, as the selector turns out.
        one,
        /// `«class mssg» id 7`.
        withId,
    };

    Kind kind = Kind::property;
    /// The property's name, or the class in the singular.
    std::string word;
    /// Which one; also what the filter's property must equal.
    ExpressionPtr selector;
    /// `whose <property> is …`; empty without a filter.
    std::string filter;
};

enum class Operator {
    add,
    modulo,
    concatenate,
    greater,
    atLeast,
    equals,
    differs,
    contains,
    containsNot,
    both,
};

struct Expression {
    struct Literal {
        Value value;
    };
    struct Variable {
        std::string name;
    };
    struct ListOf {
        std::vector<Expression> items;
    };
    struct RecordOf {
        std::vector<std::pair<std::string, Expression>> fields;
    };
    struct Not {
        ExpressionPtr operand;
    };
    struct Binary {
        Operator what;
        ExpressionPtr left;
        ExpressionPtr right;
    };
    struct Coercion {
        ExpressionPtr operand;
        /// "text" (which "string" is another word for) or "integer".
        std::string type;
    };
    /// Links from the outermost to the innermost; without a base the innermost belongs to what is
    /// being told.
    struct Chain {
        std::vector<Step> steps;
        ExpressionPtr base;
    };
    struct Count {
        ExpressionPtr of;
    };
    struct FileAt {
        ExpressionPtr path;
    };
    struct OpenFile {
        ExpressionPtr file;
        bool forWriting;
    };
    struct ReadFile {
        ExpressionPtr file;
    };

    std::variant<Literal, Variable, ListOf, RecordOf, Not, Binary, Coercion, Chain, Count, FileAt,
                 OpenFile, ReadFile>
        is;
};

struct Statement;
using Block = std::vector<Statement>;

struct Statement {
    struct Evaluate {
        Expression value;
    };
    struct SetVariable {
        std::string name;
        Expression value;
    };
    struct SetDelimiters {
        Expression value;
    };
    struct Append {
        Expression list;
        Expression value;
    };
    struct SetProperty {
        std::string property;
        Expression object;
        Expression value;
    };
    struct SetEndOfFile {
        Expression file;
        Expression size;
    };
    struct If {
        /// The last one has no condition when the script says `else`.
        struct Arm {
            std::optional<Expression> condition;
            Block body;
        };
        std::vector<Arm> arms;
    };
    struct RepeatIn {
        std::string variable;
        Expression items;
        Block body;
    };
    struct RepeatFrom {
        std::string variable;
        Expression first;
        Expression last;
        Block body;
    };
    struct ExitRepeat {};
    struct Try {
        Block body;
        Block onError;
    };
    struct TellApplication {
        Expression name;
        Block body;
    };
    struct TellProcess {
        Expression name;
        Block body;
    };
    struct Return {
        Expression value;
    };
    struct Raise {
        Expression text;
    };
    struct Delay {
        Expression seconds;
    };
    struct Activate {};
    struct Click {
        Expression object;
    };
    struct Move {
        Expression object;
        Expression destination;
    };
    struct Make {
        std::string kind;
        std::optional<Expression> properties;
        std::optional<Expression> at;
    };
    struct CloseFile {
        Expression file;
    };
    struct WriteFile {
        Expression text;
        Expression file;
    };

    /// The line without its blanks; of a block, its first line.
    Range range;
    std::variant<Evaluate, SetVariable, SetDelimiters, Append, SetProperty, SetEndOfFile, If,
                 RepeatIn, RepeatFrom, ExitRepeat, Try, TellApplication, TellProcess, Return, Raise,
                 Delay, Activate, Click, Move, Make, CloseFile, WriteFile>
        is;
};

struct Script {
    /// The variable that `on run` gives the arguments to; empty when there is no such handler.
    std::string argumentsName;
    /// The handler's body, or else all statements.
    Block body;
};

}  // namespace brindlet::osascript
