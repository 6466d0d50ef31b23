#include "ExpressionParser.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace brindlet::osascript {
namespace {

using Kind = Token::Kind;

struct ElementClass {
    std::string_view singular;
    std::string_view plural;
};
constexpr std::array<ElementClass, 9> elementClasses{{
    {"account", "accounts"},
    {"mailbox", "mailboxes"},
    {"message", "messages"},
    {"message viewer", "message viewers"},
    {"menu", "menus"},
    {"menu item", "menu items"},
    {"menu bar", "menu bars"},
    {"item", "items"},
    {"text item", "text items"},
}};

constexpr std::array<std::string_view, 8> properties{
    "name",    "email addresses",   "message id",         "class",
    "enabled", "selected messages", "selected mailboxes", "length"};

/// Words that no variable is called.
constexpr std::array<std::string_view, 21> reserved{
    "and", "as", "at",     "else",   "end", "error", "from", "if", "in",  "is",   "not",
    "of",  "on", "repeat", "return", "set", "tell",  "then", "to", "try", "whose"};

constexpr std::string_view messageCode = "class mssg";

ExpressionPtr boxed(Expression expression) {
    return std::make_unique<Expression>(std::move(expression));
}

Expression binary(Operator what, Expression left, Expression right) {
    return {Expression::Binary{what, boxed(std::move(left)), boxed(std::move(right))}};
}

Expression literal(Value value) {
    return {Expression::Literal{std::move(value)}};
}

class ExpressionParser {
  public:
    explicit ExpressionParser(TokenReader& tokens) : tokens_(tokens) {}

    Expression conjunction() {
        Expression left = negation();
        while (tokens_.skip("and")) left = binary(Operator::both, std::move(left), negation());
        return left;
    }

    Expression chain() {
        Expression::Chain chain;
        while (startsStep()) {
            chain.steps.push_back(step());
            if (!tokens_.skip("of")) return filtered(std::move(chain));
        }
        Expression base = primary();
        if (chain.steps.empty()) return base;
        // What stands in parentheses after `of` is part of the same request.
        if (auto* const inner = std::get_if<Expression::Chain>(&base.is)) {
            std::move(inner->steps.begin(), inner->steps.end(), std::back_inserter(chain.steps));
            chain.base = std::move(inner->base);
        } else {
            chain.base = boxed(std::move(base));
        }
        return filtered(std::move(chain));
    }

  private:
    Expression negation() {
        if (tokens_.skip("not")) return {Expression::Not{boxed(negation())}};
        return comparison();
    }

    Expression comparison() {
        struct Sign {
            std::string_view spelling;
            Operator what;
        };
        constexpr std::array<Sign, 6> signs{{{"is not", Operator::differs},
                                             {"is", Operator::equals},
                                             {">", Operator::greater},
                                             {"≥", Operator::atLeast},
                                             {"contains", Operator::contains},
                                             {"does not contain", Operator::containsNot}}};
        Expression left = coercion();
        for (const auto& [spelling, what] : signs)
            if (tokens_.skip(spelling)) return binary(what, std::move(left), coercion());
        return left;
    }

    Expression coercion() {
        Expression operand = concatenation();
        while (tokens_.skip("as")) {
            std::string type = tokens_.expectWord("a class");
            if (type == "string") type = "text";
            if (type != "text" && type != "integer") tokens_.fail("a class that values can become");
            operand = {Expression::Coercion{boxed(std::move(operand)), std::move(type)}};
        }
        return operand;
    }

    Expression concatenation() {
        Expression left = sum();
        while (tokens_.skip("&")) left = binary(Operator::concatenate, std::move(left), sum());
        return left;
    }

    Expression sum() {
        Expression left = remainder();
        while (tokens_.skip("+")) left = binary(Operator::add, std::move(left), remainder());
        return left;
    }

    Expression remainder() {
        Expression left = chain();
        while (tokens_.skip("mod")) left = binary(Operator::modulo, std::move(left), chain());
        return left;
    }

    bool startsStep() const {
        const Token& token = tokens_.peek();
        if (token.kind == Kind::raw) return token.spelling == messageCode;
        if (token.kind != Kind::word) return false;
        return token.spelling == "every" || isProperty(token.spelling) ||
               std::any_of(elementClasses.begin(), elementClasses.end(), [&](const auto& element) {
                   return token.spelling == element.singular || token.spelling == element.plural;
               });
    }

    Step step() {
        if (tokens_.skip("every")) return {Step::Kind::every, elementClass(), nullptr, ""};
        const Token token = tokens_.take();
        if (token.kind == Kind::raw) {
            if (tokens_.expectWord("“id”") != "id") tokens_.fail("“id”");
            return {Step::Kind::withId, "message", boxed(primary()), ""};
        }
        for (const ElementClass& element : elementClasses) {
            if (token.spelling == element.plural)
                return {Step::Kind::every, std::string(element.singular), nullptr, ""};
            if (token.spelling == element.singular)
                return {Step::Kind::one, token.spelling, boxed(primary()), ""};
        }
        return {Step::Kind::property, token.spelling, nullptr, ""};
    }

    std::string elementClass() {
        const std::string word = tokens_.expectWord("a class of elements");
        const bool known =
            std::any_of(elementClasses.begin(), elementClasses.end(),
                        [&](const ElementClass& element) { return element.singular == word; });
        if (!known) tokens_.fail("a class of elements");
        return word;
    }

    /// A filter belongs to the whole phrase before it, not to the last name of it.
    Expression filtered(Expression::Chain chain) {
        if (tokens_.skip("whose")) {
            Step& outermost = chain.steps.front();
            if (outermost.kind != Step::Kind::every) tokens_.fail("“every” before “whose”");
            outermost.filter = tokens_.expectWord("a property");
            tokens_.expect("is");
            outermost.selector = boxed(coercion());
        }
        return {std::move(chain)};
    }

    Expression primary() {
        const Token& token = tokens_.peek();
        switch (token.kind) {
            case Kind::text:
                return literal(Value::text(tokens_.take().spelling));
            case Kind::number:
                return literal(Value(tokens_.take().number));
            case Kind::symbol:
                return tokens_.skip("-") ? negative() : bracketed();
            case Kind::word:
                return word(tokens_.take().spelling);
            default:
                tokens_.fail("expression");
                return {};
        }
    }

    Expression negative() {
        if (tokens_.peek().kind != Kind::number) tokens_.fail("a number");
        return literal(Value(-tokens_.take().number));
    }

    Expression bracketed() {
        if (tokens_.skip("(")) {
            Expression inner = conjunction();
            tokens_.expect(")");
            return inner;
        }
        tokens_.expect("{");
        return startsRecord() ? record() : list();
    }

    bool startsRecord() const {
        return tokens_.peek().kind == Kind::word && tokens_.peekAfter().spelling == ":";
    }

    Expression record() {
        Expression::RecordOf record;
        do {
            std::string key = tokens_.expectWord("a name");
            tokens_.expect(":");
            record.fields.emplace_back(std::move(key), conjunction());
        } while (tokens_.skip(","));
        tokens_.expect("}");
        return {std::move(record)};
    }

    Expression list() {
        Expression::ListOf list;
        if (tokens_.skip("}")) return {std::move(list)};
        do list.items.push_back(conjunction());
        while (tokens_.skip(","));
        tokens_.expect("}");
        return {std::move(list)};
    }

    Expression word(const std::string& word) {
        if (word == "true" || word == "false") return literal(Value(word == "true"));
        if (word == "linefeed") return literal(Value::text("\n"));
        if (word == "tab") return literal(Value::text("\t"));
        if (word == "missing value") return literal(Value());
        if (word == "list") return literal(Value(ClassName{"list"}));
        if (word == "count of") return {Expression::Count{boxed(chain())}};
        if (word == "posix file") return {Expression::FileAt{boxed(primary())}};
        if (word == "open for access") {
            ExpressionPtr file = boxed(primary());
            return {Expression::OpenFile{std::move(file), tokens_.skip("with write permission")}};
        }
        if (word == "read") {
            ExpressionPtr file = boxed(primary());
            expectUtf8(tokens_);
            return {Expression::ReadFile{std::move(file)}};
        }
        const bool term = word.find(' ') != std::string::npos;
        if (term || std::find(reserved.begin(), reserved.end(), word) != reserved.end())
            tokens_.failBefore("expression");
        return {Expression::Variable{word}};
    }

    TokenReader& tokens_;
};

}  // namespace

Expression parseExpression(TokenReader& tokens) {
    return ExpressionParser(tokens).conjunction();
}

Expression parseOperand(TokenReader& tokens) {
    return ExpressionParser(tokens).chain();
}

void expectUtf8(TokenReader& tokens) {
    tokens.expect("as");
    if (tokens.peek().kind != Kind::raw || tokens.peek().spelling != "class utf8")
        tokens.fail("“«class utf8»”");
    tokens.take();
}

bool isProperty(std::string_view word) {
    return std::find(properties.begin(), properties.end(), word) != properties.end();
}

}  // namespace brindlet::osascript
