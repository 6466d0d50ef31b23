#include "models/embedded/Tokens.h"

#include <algorithm>
#include <array>

#include "models/embedded/Ascii.h"

namespace brindlet {
namespace {

constexpr std::size_t longestWord = 24;

bool isWordByte(char c) {
    return ascii::isLetter(c) || static_cast<unsigned char>(c) >= 0x80;
}

/// "l'abonnement", "dell'ordine": the word is what follows.
std::string_view withoutArticle(std::string_view word) {
    static constexpr std::array<std::string_view, 15> articles{
        "l", "d", "qu", "n", "s", "c", "j", "m", "t", "dell", "nell", "all", "dall", "sull", "un"};
    const auto end = word.find('\'');
    if (end == std::string_view::npos) return word;
    return std::ranges::find(articles, word.substr(0, end)) == articles.end()
               ? word
               : word.substr(end + 1);
}

class Tokenizer {
  public:
    Tokenizer(std::string_view text, std::size_t limit) : text_(text), limit_(limit) {}

    std::vector<std::string_view> run() {
        out_.reserve(std::min(limit_, text_.size() / 5 + 8));
        while (at_ < text_.size() && out_.size() < limit_) step();
        return std::move(out_);
    }

  private:
    void step() {
        if (takePicture() || takeMoneySign()) return;
        const char c = text_[at_];
        if (isWordByte(c)) return word();
        if (ascii::isDigit(c)) return number();
        if (c == '-' && peek(1) == '-') return rule();
        ++at_;
        switch (c) {
            case '$':
                return out_.push_back("#money");
            case '%':
                return out_.push_back("#pct");
            case '!':
                return mark("#bang");
            case '?':
                return mark("#ask");
            case '>':
                return mark("#quoted");
            case '"':
                return mark("#quote");
            case '#':
                return out_.push_back("#hash");
            case '[':
                return out_.push_back("#bracket");
            default:
                return;
        }
    }

    char peek(std::size_t ahead) const {
        return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0';
    }

    /// A mark once for a whole row of them.
    void mark(std::string_view name) {
        if (out_.empty() || out_.back() != name) out_.push_back(name);
    }

    bool takePicture() {
        // Pictures lie in the planes whose first byte is F0.
        if (static_cast<unsigned char>(text_[at_]) != 0xF0) return false;
        at_ = std::min(at_ + 4, text_.size());
        mark("#picture");
        return true;
    }

    bool takeMoneySign() {
        const std::string_view rest = text_.substr(at_);
        for (const std::string_view sign : {"\xC2\xA3", "\xE2\x82\xAC", "\xC2\xA5"}) {
            if (!rest.starts_with(sign)) continue;
            at_ += sign.size();
            out_.push_back("#money");
            return true;
        }
        return false;
    }

    void skipToBlank() {
        while (at_ < text_.size() && !ascii::isControlOrBlank(text_[at_])) ++at_;
    }

    void word() {
        const std::size_t start = at_;
        while (at_ < text_.size() &&
               (isWordByte(text_[at_]) || (text_[at_] == '\'' && isWordByte(peek(1)))))
            ++at_;
        const std::string_view found = withoutArticle(text_.substr(start, at_ - start));
        if (found == "http" || found == "https" || found == "www") {
            skipToBlank();
            out_.push_back("#url");
        } else if (peek(0) == '@') {
            skipToBlank();
            out_.push_back("#address");
        } else {
            out_.push_back(found.size() > longestWord ? "#long" : found);
        }
    }

    void number() {
        static constexpr std::array<std::string_view, 11> byDigits{
            "#n0", "#n1", "#n2", "#n3", "#n4", "#n5", "#n6", "#n7", "#n8", "#n9", "#n10"};
        const std::size_t start = at_;
        std::size_t digits = 0;
        for (; at_ < text_.size(); ++at_) {
            if (ascii::isDigit(text_[at_]))
                ++digits;
            else if (std::string_view(".,:-/").find(text_[at_]) == std::string_view::npos ||
                     !ascii::isDigit(peek(1)))
                break;
        }
        const std::string_view found = text_.substr(start, at_ - start);
        if (peek(0) == '%') {
            ++at_;
            out_.push_back("#pct");
        } else if (ascii::isLetter(peek(0))) {
            while (ascii::isAlphanumeric(peek(0))) ++at_;
            out_.push_back("#mixed");
        } else if (found.find(':') != std::string_view::npos) {
            out_.push_back("#time");
        } else if (found.find('/') != std::string_view::npos) {
            out_.push_back("#date");
        } else if (digits != found.size()) {
            out_.push_back("#dec");
        } else {
            out_.push_back(byDigits[std::min<std::size_t>(digits, 10)]);
        }
    }

    void rule() {
        while (peek(0) == '-') ++at_;
        mark("#rule");
    }

    std::string_view text_;
    std::size_t limit_;
    std::size_t at_ = 0;
    std::vector<std::string_view> out_;
};

}  // namespace

std::vector<std::string_view> tokens(std::string_view text, std::size_t limit) {
    return Tokenizer(text, limit).run();
}

}  // namespace brindlet
