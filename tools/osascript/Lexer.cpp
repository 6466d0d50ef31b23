#include "Lexer.h"

#include <array>
#include <optional>

#include "base/Text.h"
#include "base/Utf8.h"

namespace brindlet::osascript {
namespace {

/// Terms that are written as several words; where one starts like another, the longer comes first.
constexpr std::array<std::string_view, 33> terms{
    "applescript's text item delimiters",
    "with write permission",
    "does not contain",
    "open for access",
    "selected mailboxes",
    "selected messages",
    "email addresses",
    "message viewers",
    "message viewer",
    "with properties",
    "missing value",
    "close access",
    "exit repeat",
    "repeat with",
    "end repeat",
    "menu items",
    "message id",
    "posix file",
    "text items",
    "menu item",
    "make new",
    "menu bar",
    "on error",
    "count of",
    "end tell",
    "else if",
    "end run",
    "end try",
    "set eof",
    "end if",
    "end of",
    "is not",
    "on run",
};

constexpr std::string_view continuation = "¬";
constexpr std::string_view rawStart = "«";
constexpr std::string_view rawEnd = "»";
constexpr std::array<std::string_view, 11> symbols{"&", "+", "-", ">", "≥", "(",
                                                   ")", "{", "}", ",", ":"};

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

class Lexer {
  public:
    explicit Lexer(std::string_view script) : rest_(script) {}

    std::variant<std::vector<Token>, SyntaxError> run() && {
        while (!rest_.empty() && !error_) next();
        if (error_) return std::move(*error_);
        endLine();
        return joinedTerms();
    }

  private:
    void next() {
        if (rest_.starts_with("--"))
            skip(std::min(rest_.find('\n'), rest_.size()));
        else if (rest_.front() == '\n')
            endLine(), skip(1);
        else if (rest_.front() == ' ' || rest_.front() == '\t' || rest_.front() == '\r')
            skip(1);
        else if (rest_.starts_with(continuation))
            continueLine();
        else if (rest_.front() == '"')
            takeText();
        else if (rest_.starts_with(rawStart))
            takeRaw();
        else if (isDigit(rest_.front()))
            takeNumber();
        else if (isLetter(rest_.front()))
            takeWord();
        else
            takeSymbol();
    }

    void fail(std::string text) { error_ = {std::move(text), {place_, place_ + 1}}; }

    /// Moves on by so many bytes, which end at a character's end.
    void skip(std::size_t bytes) {
        const char* at = rest_.data();
        const char* const end = at + bytes;
        for (; at < end; ++place_) nextCodePoint(at, end);
        rest_.remove_prefix(bytes);
    }

    Token& add(Token::Kind kind, std::string spelling, std::size_t bytes) {
        const std::size_t from = place_;
        skip(bytes);
        tokens_.push_back({kind, std::move(spelling), 0, {from, place_}});
        return tokens_.back();
    }

    void endLine() { tokens_.push_back({Token::Kind::lineEnd, "", 0, {place_, place_}}); }

    void continueLine() {
        skip(continuation.size());
        while (!rest_.empty() && (rest_.front() == ' ' || rest_.front() == '\t')) skip(1);
        if (rest_.empty() || rest_.front() != '\n') return fail("Expected end of line after “¬”.");
        skip(1);
    }

    void takeText() {
        std::string text;
        std::size_t at = 1;
        for (; at < rest_.size() && rest_[at] != '"'; ++at) {
            if (rest_[at] != '\\' || at + 1 == rest_.size()) {
                text += rest_[at];
                continue;
            }
            const char escaped = rest_[++at];
            text += escaped == 'n' ? '\n' : escaped == 't' ? '\t' : escaped == 'r' ? '\r' : escaped;
        }
        if (at == rest_.size()) return fail("Expected “\"” but found end of script.");
        add(Token::Kind::text, std::move(text), at + 1);
    }

    void takeRaw() {
        const std::size_t end = rest_.find(rawEnd);
        if (end == std::string_view::npos) return fail("Expected “»” but found end of script.");
        add(Token::Kind::raw, std::string(rest_.substr(rawStart.size(), end - rawStart.size())),
            end + rawEnd.size());
    }

    void takeNumber() {
        std::size_t size = 1;
        while (size < rest_.size() && isDigit(rest_[size])) ++size;
        const auto value = parseInt64(rest_.substr(0, size));
        if (!value) return fail("The number is too large.");
        add(Token::Kind::number, "", size).number = *value;
    }

    void takeWord() {
        std::size_t size = 1;
        while (size < rest_.size() && (isLetter(rest_[size]) || isDigit(rest_[size]))) ++size;
        if (rest_.substr(size).starts_with("'s")) size += 2;
        add(Token::Kind::word, lowercased(rest_.substr(0, size)), size);
    }

    void takeSymbol() {
        for (const std::string_view symbol : symbols) {
            if (!rest_.starts_with(symbol)) continue;
            add(Token::Kind::symbol, std::string(symbol), symbol.size());
            return;
        }
        fail("Expected expression but found unknown token.");
    }

    /// How many tokens from the place on make up the term; 0 when they do not.
    std::size_t lengthOfTerm(std::size_t at, std::string_view term) const {
        for (std::size_t length = 1;; ++length, ++at) {
            const std::size_t end = std::min(term.find(' '), term.size());
            if (at >= tokens_.size() || tokens_[at].kind != Token::Kind::word ||
                tokens_[at].spelling != term.substr(0, end))
                return 0;
            if (end == term.size()) return length;
            term.remove_prefix(end + 1);
        }
    }

    std::vector<Token> joinedTerms() {
        std::vector<Token> joined;
        for (std::size_t at = 0; at < tokens_.size();) {
            std::size_t length = 1;
            Token token = tokens_[at];
            for (const std::string_view term : terms) {
                const std::size_t found = lengthOfTerm(at, term);
                if (found == 0) continue;
                length = found;
                token.spelling = term;
                token.range.to = tokens_[at + length - 1].range.to;
                break;
            }
            joined.push_back(std::move(token));
            at += length;
        }
        return joined;
    }

    std::string_view rest_;
    std::size_t place_ = 0;
    std::vector<Token> tokens_;
    std::optional<SyntaxError> error_;
};

}  // namespace

std::variant<std::vector<Token>, SyntaxError> tokens(std::string_view script) {
    return Lexer(script).run();
}

}  // namespace brindlet::osascript
