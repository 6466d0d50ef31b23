#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Lexer.h"

namespace brindlet::osascript {

/// Walks over a script's tokens. The first mistake stays; from then on the walk stands at a line
/// end, so that a parser runs out by itself and asks for the mistake once.
class TokenReader {
  public:
    explicit TokenReader(std::vector<Token> tokens) : tokens_(std::move(tokens)) {}

    const Token& peek() const { return error_ ? tokens_.back() : tokens_[at_]; }
    /// The one after it.
    const Token& peekAfter() const {
        return error_ || at_ + 1 == tokens_.size() ? tokens_.back() : tokens_[at_ + 1];
    }
    /// Where the token ends that was taken last.
    std::size_t endOfPrevious() const { return at_ == 0 ? 0 : tokens_[at_ - 1].range.to; }
    Token take();
    bool at(std::string_view wordOrSymbol) const;
    bool atOneOf(std::initializer_list<std::string_view> words) const;
    /// Takes it if it is there.
    bool skip(std::string_view wordOrSymbol);
    void expect(std::string_view wordOrSymbol);
    /// Takes a word of any spelling; `what` tells of it when there is none.
    std::string expectWord(std::string_view what);
    bool atLineEnd() const { return peek().kind == Token::Kind::lineEnd; }
    void expectLineEnd();
    /// Moves over line ends; false at the end of the script.
    bool skipEmptyLines();

    /// What was expected, and what stands there.
    void fail(std::string_view expected);
    /// The same of the token that was taken last.
    void failBefore(std::string_view expected);
    const std::optional<SyntaxError>& error() const { return error_; }

  private:
    void failAt(const Token& found, std::string_view expected);

    std::vector<Token> tokens_;
    std::size_t at_ = 0;
    std::optional<SyntaxError> error_;
};

}  // namespace brindlet::osascript
