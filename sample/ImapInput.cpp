#include "sample/ImapInput.h"

#include "base/Text.h"

namespace brindlet::sample {
namespace {

constexpr std::size_t mostBytes = 64 * 1024;

}  // namespace

LiteralMark literalMark(std::string_view line) {
    if (!line.ends_with('}')) return {};
    const std::size_t brace = line.rfind('{');
    if (brace == std::string_view::npos) return {};
    std::string_view digits = line.substr(brace + 1, line.size() - brace - 2);
    LiteralMark mark;
    mark.length = line.size() - brace;
    if (digits.ends_with('+')) {
        mark.waits = false;
        digits.remove_suffix(1);
    }
    if (digits.find_first_not_of("0123456789") != std::string_view::npos) return {};
    const auto size = parseInt64(digits);
    if (!size) return {};
    mark.size = static_cast<std::size_t>(*size);
    return mark;
}

ImapInput::Event ImapInput::next() {
    while (line_ <= bytes_.size()) {
        const std::size_t end = bytes_.find('\n', line_);
        if (end == std::string::npos)
            return bytes_.size() > mostBytes ? Event::tooMuch : Event::none;
        std::string_view line = std::string_view(bytes_).substr(line_, end - line_);
        if (line.ends_with('\r')) line.remove_suffix(1);
        const LiteralMark mark = literalMark(line);
        if (mark.length == 0) {
            command_ = bytes_.substr(0, line_) + std::string(line);
            bytes_.erase(0, end + 1);
            line_ = 0;
            return Event::command;
        }
        if (mark.size > mostBytes || end > mostBytes) return Event::tooMuch;
        line_ = end + 1 + mark.size;
        if (mark.waits) return Event::literal;
    }
    return Event::none;
}

}  // namespace brindlet::sample
