#pragma once

#include <cctype>
#include <string>
#include <string_view>

#include "base/Utf8.h"

namespace brindlet {

/// RFC 8259 by plain recursion, as an oracle for the reader.
class JsonGrammar {
  public:
    explicit JsonGrammar(std::string_view text) : text_(text) {}
    bool accepts() { return isValidUtf8(text_) && value(0) && (space(), at_ == text_.size()); }

  private:
    char peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }
    bool take(char c) {
        if (at_ >= text_.size() || text_[at_] != c) return false;
        ++at_;
        return true;
    }
    void space() {
        while (take(' ') || take('\t') || take('\n') || take('\r')) {
        }
    }
    bool digits() {
        const auto start = at_;
        while (peek() >= '0' && peek() <= '9') ++at_;
        return at_ > start;
    }
    bool word(std::string_view literal) {
        if (text_.substr(at_, literal.size()) != literal) return false;
        at_ += literal.size();
        return true;
    }
    int hex4() {
        int code = 0;
        for (int i = 0; i < 4; ++i) {
            const char c = peek();
            if (!std::isxdigit(static_cast<unsigned char>(c))) return -1;
            code = code * 16 + std::stoi(std::string(1, c), nullptr, 16);
            ++at_;
        }
        return code;
    }
    bool string() {
        if (!take('"')) return false;
        while (at_ < text_.size()) {
            const char c = text_[at_++];
            if (c == '"') return true;
            if (static_cast<unsigned char>(c) < 0x20) return false;
            if (c != '\\') continue;
            if (take('u')) {
                const int high = hex4();
                if (high < 0 || (high >= 0xDC00 && high <= 0xDFFF)) return false;
                if (high < 0xD800 || high > 0xDFFF) continue;
                if (!take('\\') || !take('u')) return false;
                const int low = hex4();
                if (low < 0xDC00 || low > 0xDFFF) return false;
            } else if (at_ >= text_.size() ||
                       std::string_view("\"\\/bfnrt").find(text_[at_++]) == std::string::npos) {
                return false;
            }
        }
        return false;
    }
    bool number() {
        take('-');
        if (!take('0') && !digits()) return false;
        if (take('.') && !digits()) return false;
        if (take('e') || take('E')) {
            if (!take('+')) take('-');
            return digits();
        }
        return true;
    }
    bool value(int depth) {
        space();
        switch (peek()) {
            case '"':
                return string();
            case 't':
                return word("true");
            case 'f':
                return word("false");
            case 'n':
                return word("null");
            case '[':
                ++at_;
                space();
                if (take(']')) return true;
                do
                    if (!value(depth + 1)) return false;
                while ((space(), take(',')));
                return take(']');
            case '{':
                ++at_;
                space();
                if (take('}')) return true;
                do {
                    space();
                    if (!string() || (space(), !take(':')) || !value(depth + 1)) return false;
                } while ((space(), take(',')));
                return take('}');
            default:
                return number();
        }
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

}  // namespace brindlet
