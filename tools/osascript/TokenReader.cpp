#include "TokenReader.h"

#include <algorithm>

namespace brindlet::osascript {
namespace {

bool isWordOrSymbol(const Token& token) {
    return token.kind == Token::Kind::word || token.kind == Token::Kind::symbol;
}

}  // namespace

Token TokenReader::take() {
    Token token = peek();
    if (!error_ && at_ + 1 < tokens_.size()) ++at_;
    return token;
}

bool TokenReader::at(std::string_view wordOrSymbol) const {
    return isWordOrSymbol(peek()) && peek().spelling == wordOrSymbol;
}

bool TokenReader::atOneOf(std::initializer_list<std::string_view> words) const {
    return std::any_of(words.begin(), words.end(),
                       [this](std::string_view word) { return at(word); });
}

bool TokenReader::skip(std::string_view wordOrSymbol) {
    if (!at(wordOrSymbol)) return false;
    take();
    return true;
}

void TokenReader::expect(std::string_view wordOrSymbol) {
    if (!skip(wordOrSymbol)) fail("“" + std::string(wordOrSymbol) + "”");
}

std::string TokenReader::expectWord(std::string_view what) {
    if (peek().kind != Token::Kind::word) {
        fail(what);
        return {};
    }
    return take().spelling;
}

void TokenReader::expectLineEnd() {
    if (atLineEnd())
        take();
    else
        fail("end of line");
}

bool TokenReader::skipEmptyLines() {
    while (!error_ && atLineEnd() && at_ + 1 < tokens_.size()) ++at_;
    return !error_ && !atLineEnd();
}

void TokenReader::fail(std::string_view expected) {
    failAt(peek(), expected);
}

void TokenReader::failBefore(std::string_view expected) {
    if (at_ > 0) failAt(tokens_[at_ - 1], expected);
}

void TokenReader::failAt(const Token& found, std::string_view expected) {
    if (error_) return;
    const std::string there = found.kind == Token::Kind::lineEnd ? "end of line"
                              : isWordOrSymbol(found)            ? "“" + found.spelling + "”"
                                                                 : "a value";
    error_ = {"Expected " + std::string(expected) + " but found " + there + '.', found.range};
}

}  // namespace brindlet::osascript
