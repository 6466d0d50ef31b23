#include "Parser.h"

#include "ExpressionParser.h"
#include "TokenReader.h"

namespace brindlet::osascript {
namespace {

using Kind = Token::Kind;

class Parser {
  public:
    explicit Parser(std::vector<Token> tokens) : tokens_(std::move(tokens)) {}

    std::variant<Script, SyntaxError> run() && {
        Script script;
        if (tokens_.skipEmptyLines() && tokens_.skip("on run")) {
            script.argumentsName = tokens_.expectWord("the name of the arguments");
            script.body = block({"end run"});
            tokens_.expect("end run");
            tokens_.expectLineEnd();
            if (tokens_.skipEmptyLines()) tokens_.fail("end of script");
        } else {
            script.body = block({});
        }
        if (tokens_.error()) return *tokens_.error();
        return script;
    }

  private:
    /// Whole lines up to one that starts with one of the words, or to the end of the script where
    /// there are none.
    Block block(std::initializer_list<std::string_view> ends) {
        Block statements;
        while (tokens_.skipEmptyLines() && !tokens_.atOneOf(ends)) {
            statements.push_back(statement());
            tokens_.expectLineEnd();
        }
        return statements;
    }

    Statement statement() {
        const std::size_t from = tokens_.peek().range.from;
        if (tokens_.skip("if")) return conditional(from);
        if (tokens_.skip("repeat with")) return loop(from);
        if (tokens_.skip("try")) return attempt(from);
        if (tokens_.skip("tell")) return tell(from);
        return simple(from);
    }

    template <class T>
    Statement made(std::size_t from, T what) const {
        return {{from, tokens_.endOfPrevious()}, std::move(what)};
    }

    Statement simple(std::size_t from) {
        if (tokens_.skip("set")) return assignment(from);
        if (tokens_.skip("set eof")) {
            Expression file = parseOperand(tokens_);
            tokens_.expect("to");
            Expression size = parseExpression(tokens_);
            return made(from, Statement::SetEndOfFile{std::move(file), std::move(size)});
        }
        if (tokens_.skip("exit repeat")) return made(from, Statement::ExitRepeat{});
        if (tokens_.skip("activate")) return made(from, Statement::Activate{});
        if (tokens_.skip("return")) return with<Statement::Return>(from, parseExpression(tokens_));
        if (tokens_.skip("error")) return with<Statement::Raise>(from, parseExpression(tokens_));
        if (tokens_.skip("delay")) return with<Statement::Delay>(from, parseExpression(tokens_));
        if (tokens_.skip("click")) return with<Statement::Click>(from, parseOperand(tokens_));
        if (tokens_.skip("close access"))
            return with<Statement::CloseFile>(from, parseOperand(tokens_));
        if (tokens_.skip("move")) {
            Expression object = parseOperand(tokens_);
            tokens_.expect("to");
            Expression destination = parseOperand(tokens_);
            return made(from, Statement::Move{std::move(object), std::move(destination)});
        }
        if (tokens_.skip("make new")) return making(from);
        if (tokens_.skip("write")) {
            Expression text = parseOperand(tokens_);
            tokens_.expect("to");
            Expression file = parseOperand(tokens_);
            expectUtf8(tokens_);
            return made(from, Statement::WriteFile{std::move(text), std::move(file)});
        }
        return with<Statement::Evaluate>(from, parseExpression(tokens_));
    }

    template <class T>
    Statement with(std::size_t from, Expression operand) const {
        return made(from, T{std::move(operand)});
    }

    Statement assignment(std::size_t from) {
        if (tokens_.skip("applescript's text item delimiters"))
            return with<Statement::SetDelimiters>(from, newValue());
        if (tokens_.skip("end of")) {
            Expression list = parseOperand(tokens_);
            Expression value = newValue();
            return made(from, Statement::Append{std::move(list), std::move(value)});
        }
        if (isProperty(tokens_.peek().spelling)) {
            std::string property = tokens_.take().spelling;
            tokens_.expect("of");
            Expression object = parseOperand(tokens_);
            Expression value = newValue();
            return made(from, Statement::SetProperty{std::move(property), std::move(object),
                                                     std::move(value)});
        }
        std::string name = tokens_.expectWord("a variable");
        Expression value = newValue();
        return made(from, Statement::SetVariable{std::move(name), std::move(value)});
    }

    Expression newValue() {
        tokens_.expect("to");
        return parseExpression(tokens_);
    }

    Statement making(std::size_t from) {
        Statement::Make make{tokens_.expectWord("a class"), {}, {}};
        if (tokens_.skip("with properties")) make.properties = parseOperand(tokens_);
        if (tokens_.skip("at")) make.at = parseOperand(tokens_);
        return made(from, std::move(make));
    }

    Statement conditional(std::size_t from) {
        Expression condition = parseExpression(tokens_);
        tokens_.expect("then");
        Statement head = made(from, Statement::If{});
        auto& arms = std::get<Statement::If>(head.is).arms;
        if (!tokens_.atLineEnd()) {
            arms.push_back({std::move(condition), oneLine()});
            return head;
        }
        arms.push_back({std::move(condition), block({"else if", "else", "end if"})});
        while (tokens_.skip("else if")) {
            Expression next = parseExpression(tokens_);
            tokens_.expect("then");
            arms.push_back({std::move(next), block({"else if", "else", "end if"})});
        }
        if (tokens_.skip("else")) arms.push_back({std::nullopt, block({"end if"})});
        tokens_.expect("end if");
        return head;
    }

    /// What follows `then` or `to` on its own line.
    Block oneLine() {
        Block body;
        body.push_back(simple(tokens_.peek().range.from));
        return body;
    }

    Statement loop(std::size_t from) {
        std::string variable = tokens_.expectWord("a variable");
        const bool counts = !tokens_.skip("in");
        if (counts) tokens_.expect("from");
        Expression first = parseExpression(tokens_);
        std::optional<Expression> last;
        if (counts) {
            tokens_.expect("to");
            last = parseExpression(tokens_);
        }
        const std::size_t to = tokens_.endOfPrevious();
        Block body = block({"end repeat"});
        tokens_.expect("end repeat");
        if (!last)
            return {{from, to},
                    Statement::RepeatIn{std::move(variable), std::move(first), std::move(body)}};
        return {{from, to},
                Statement::RepeatFrom{std::move(variable), std::move(first), std::move(*last),
                                      std::move(body)}};
    }

    Statement attempt(std::size_t from) {
        Statement head = made(from, Statement::Try{});
        auto& attempt = std::get<Statement::Try>(head.is);
        attempt.body = block({"on error", "end try"});
        if (tokens_.skip("on error")) attempt.onError = block({"end try"});
        tokens_.expect("end try");
        return head;
    }

    Statement tell(std::size_t from) {
        const bool process = tokens_.skip("process");
        if (!process) tokens_.expect("application");
        Expression name = parseOperand(tokens_);
        const std::size_t to = tokens_.endOfPrevious();
        Block body;
        if (tokens_.skip("to")) {
            body = oneLine();
        } else {
            body = block({"end tell"});
            tokens_.expect("end tell");
        }
        if (process) return {{from, to}, Statement::TellProcess{std::move(name), std::move(body)}};
        return {{from, to}, Statement::TellApplication{std::move(name), std::move(body)}};
    }

    TokenReader tokens_;
};

}  // namespace

std::variant<Script, SyntaxError> parsed(std::string_view source) {
    auto all = tokens(source);
    if (auto* const error = std::get_if<SyntaxError>(&all)) return std::move(*error);
    return Parser(std::get<std::vector<Token>>(std::move(all))).run();
}

}  // namespace brindlet::osascript
