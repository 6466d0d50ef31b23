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
    if (line_ > bytes_.size()) return Event::none;
    const std::size_t end = bytes_.find('\n', line_);
    if (end == std::string::npos) return bytes_.size() > mostBytes ? Event::tooMuch : Event::none;
    std::string_view text = std::string_view(bytes_).substr(0, end);
    if (text.ends_with('\r')) text.remove_suffix(1);
    const LiteralMark mark = literalMark(text.substr(std::min(line_, text.size())));
    if (mark.length > 0) {
        if (mark.size > mostBytes || end > mostBytes) return Event::tooMuch;
        line_ = end + 1 + mark.size;
        return mark.waits ? Event::literal : next();
    }
    command_ = text;
    bytes_.erase(0, end + 1);
    line_ = 0;
    return Event::command;
}

}  // namespace brindlet::sample
