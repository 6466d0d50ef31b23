#include <algorithm>
#include <array>
#include <vector>

#include "base/Graphemes.h"
#include "base/Text.h"
#include "base/Utf8.h"
#include "mail/MailStore.h"

// The text is read as a person counts it, in characters, and a character may be any number of
// bytes:
// ">" with an accent on it is no ">" and closes no tag. Nearly all mail is ASCII at the places that
// matter, so each step looks at two bytes first and measures a character only where it must. The
// raw bytes are walked as they are; only what was written is repaired at the end.

namespace brindlet {
namespace {

constexpr std::size_t none = std::string_view::npos;
constexpr std::int64_t mostSteps = 80'000;
constexpr std::int64_t entityReach = 12;
constexpr int closerReach = 24;

enum class Kind : unsigned char { ordinary, white, special };

/// What an ASCII byte is when another ASCII byte follows it. A carriage return is special as it may
/// be one character with the line feed after it.
constexpr std::array<Kind, 256> makeKinds() {
    std::array<Kind, 256> kinds{};
    for (std::size_t byte = 0x80; byte < 0x100; ++byte) kinds[byte] = Kind::special;
    for (const char c : {' ', '\t', '\n', '\v', '\f'})
        kinds[static_cast<std::size_t>(c)] = Kind::white;
    for (const char c : {'<', '&', '\r'}) kinds[static_cast<std::size_t>(c)] = Kind::special;
    return kinds;
}
constexpr auto kinds = makeKinds();

bool isAsciiAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]) < 0x80;
}

/// True when nothing before or after joins these printable ASCII bytes to a longer character.
bool standsAlone(std::string_view text, std::size_t at, std::size_t length) {
    constexpr std::size_t longestCodePoint = 4;
    const std::size_t end = at + length;
    if (end < text.size() && !isAsciiAt(text, end) &&
        graphemeLength(text.substr(end - 1, 1 + longestCodePoint)) > 1)
        return false;
    if (at == 0 || isAsciiAt(text, at - 1)) return true;
    std::size_t before = at - 1;
    while (before > 0 && at - before < longestCodePoint && (text[before] & 0xC0) == 0x80) --before;
    // Behind stray continuation bytes the part from `before` is no single code point, and none of
    // these joins anything.
    const char* start = text.data() + before;
    nextRepairedCodePoint(start, text.data() + at);
    return start != text.data() + at ||
           graphemeLength(text.substr(before, at + 1 - before)) == at - before;
}

bool startsIgnoringCase(std::string_view text, std::string_view lowerCased) {
    if (text.size() < lowerCased.size()) return false;
    for (std::size_t i = 0; i < lowerCased.size(); ++i) {
        const char c = text[i];
        if ((c >= 'A' && c <= 'Z' ? c + 32 : c) != lowerCased[i]) return false;
    }
    return true;
}

/// Where a short ASCII text next stands for itself, ignoring case. It is asked about places in
/// ascending order and remembers its answer, so that thousands of tags that nothing closes do not
/// each search to the end.
class Sought {
  public:
    explicit Sought(std::string_view lowerCased) : sought_(lowerCased) {}

    /// None when it is not found at or after `from`.
    std::size_t find(std::string_view text, std::size_t from) {
        if (known_ && (found_ == none || found_ >= from)) return found_;
        known_ = true;
        for (found_ = text.find(sought_[0], from); found_ != none;
             found_ = text.find(sought_[0], found_ + 1))
            if (startsIgnoringCase(text.substr(found_), sought_) &&
                standsAlone(text, found_, sought_.size()))
                break;
        return found_;
    }
    std::size_t size() const { return sought_.size(); }

  private:
    std::string_view sought_;  // starts with a character that has no case
    bool known_ = false;
    std::size_t found_ = none;
};

class Scan {
  public:
    Scan(std::string_view raw, std::int64_t limit)
        : raw_(raw),
          limit_(std::min({limit, mostSteps, static_cast<std::int64_t>(raw.size())})),
          out_(static_cast<std::size_t>(limit_) + 8, '\0') {}

    std::string run() {
        while (hasRoom()) {
            if (isAsciiAt(raw_, at_))
                takeAscii();
            else
                takeLetters();
            if (hasRoom()) takeOne();
        }
        return std::string(trimBlanks({out_.data(), size_}));
    }

  private:
    bool hasRoom() const { return at_ < raw_.size() && steps_ < mostSteps && written_ < limit_; }

    /// ASCII text and white space, up to the first byte that needs a closer look. One that is not
    /// followed by ASCII does: what comes may join it, and of the last byte nothing is known.
    void takeAscii() {
        const auto room = static_cast<std::size_t>(std::min(limit_ - written_, mostSteps - steps_));
        const std::size_t stop = at_ + std::min(room, raw_.size() - 1 - at_);
        const char* const text = raw_.data();
        char* const out = out_.data();
        std::size_t at = at_;
        std::size_t size = size_;
        bool blank = lastWasBlank_;
        auto byte = static_cast<unsigned char>(text[at]);
        for (; at < stop; ++at) {
            const auto next = static_cast<unsigned char>(text[at + 1]);
            const Kind kind = kinds[byte];
            if (kind == Kind::special || next >= 0x80) break;
            const bool white = kind == Kind::white;
            out[size] = white ? ' ' : static_cast<char>(byte);
            size += white && blank ? 0 : 1;
            blank = white;
            byte = next;
        }
        steps_ += static_cast<std::int64_t>(at - at_);
        written_ += static_cast<std::int64_t>(size - size_);
        at_ = at;
        size_ = size;
        lastWasBlank_ = blank;
    }

    /// Plain letters, for as long as the next character is plain too or ASCII.
    void takeLetters() {
        std::size_t length = letterLength(at_);
        while (length > 0 && hasRoom()) {
            const std::size_t next = at_ + length;
            if (next == raw_.size()) return;
            const std::size_t nextLength = isAsciiAt(raw_, next) ? 0 : letterLength(next);
            if (nextLength == 0 && !isAsciiAt(raw_, next)) return;
            write(raw_.substr(at_, length));
            ++steps_;
            at_ = next;
            length = nextLength;
        }
    }

    /// The byte length of the plain letter at a place that is not ASCII; 0 when it is none.
    std::size_t letterLength(std::size_t at) const {
        const char* const start = raw_.data() + at;
        const char* end = start;
        if (!isPlainLetter(nextRepairedCodePoint(end, raw_.data() + raw_.size()))) return 0;
        return static_cast<std::size_t>(end - start);
    }

    /// One character, or the tag or entity that it starts.
    void takeOne() {
        ++steps_;
        const std::size_t length = graphemeLength(raw_.substr(at_));
        const char c = length == 1 ? raw_[at_] : '\0';
        if (c == '<') {
            skipTag();
        } else if (const std::size_t end = c == '&' ? entityEnd() : none; end != none) {
            at_ = end;
            writeBlank();
        } else {
            const char* first = raw_.data() + at_;
            const std::string_view character = raw_.substr(at_, length);
            if (isWhiteSpace(nextRepairedCodePoint(first, raw_.data() + raw_.size())))
                writeBlank();
            else if (isValidUtf8(character))
                write(character);
            else
                write(repairedUtf8(character));
            at_ += length;
        }
    }

    void skipTag() {
        std::size_t end = rawElementEnd();
        if (end == none) {
            end = greater_.find(raw_, at_);
            if (end != none) ++end;
        }
        // A tag that nothing closes swallows the rest.
        at_ = end == none ? raw_.size() : end;
        if (end != none) writeBlank();
    }

    /// Behind the closer of a script or style element that starts here, its content included.
    std::size_t rawElementEnd() {
        const std::string_view name = raw_.substr(at_ + 1);
        Sought* const closer = startsIgnoringCase(name, "script")  ? &scriptCloser_
                               : startsIgnoringCase(name, "style") ? &styleCloser_
                                                                   : nullptr;
        if (!closer || !standsAlone(raw_, at_, closer->size() - 1)) return none;
        const std::size_t found = closer->find(raw_, at_);
        if (found == none) return none;
        const std::size_t end = found + closer->size();
        std::size_t at = end;
        for (int i = 0; i < closerReach && at < raw_.size(); ++i) {
            const std::size_t length = graphemeLength(raw_.substr(at));
            if (length == 1 && raw_[at] == '>') return at + 1;
            at += length;
        }
        return end;
    }

    /// Behind the ";" that makes the "&" here an entity; none when there is none in reach.
    std::size_t entityEnd() {
        const std::size_t semicolon = semicolon_.find(raw_, at_);
        if (semicolon == none) return none;
        // No more characters than bytes.
        if (semicolon - at_ < entityReach) return semicolon + 1;
        // A run of "&" looks ahead over the same characters again and again, and one of them may be
        // as long as the text: their ends are kept.
        std::erase_if(ahead_, [this](std::size_t end) { return end <= at_; });
        while (ahead_.size() + 1 < entityReach && (ahead_.empty() || ahead_.back() < semicolon)) {
            const std::size_t from = ahead_.empty() ? at_ : ahead_.back();
            ahead_.push_back(from + graphemeLength(raw_.substr(from)));
        }
        const bool inReach = std::find(ahead_.begin(), ahead_.end(), semicolon) != ahead_.end();
        return inReach ? semicolon + 1 : none;
    }

    void writeBlank() {
        if (!lastWasBlank_) write(" ");
        lastWasBlank_ = true;
    }

    void write(std::string_view character) {
        // What is still to come takes a byte each, unless it too is written here.
        const auto left = static_cast<std::size_t>(limit_ - written_);
        if (size_ + character.size() + left > out_.size())
            out_.resize((size_ + character.size() + left) * 2);
        character.copy(out_.data() + size_, character.size());
        size_ += character.size();
        ++written_;
        lastWasBlank_ = false;
    }

    const std::string_view raw_;
    const std::int64_t limit_;
    std::string out_;
    std::size_t size_ = 0;  // of what was written to `out_`
    std::size_t at_ = 0;
    std::int64_t steps_ = 0;
    std::int64_t written_ = 0;
    bool lastWasBlank_ = true;
    Sought greater_{">"};
    Sought semicolon_{";"};
    Sought scriptCloser_{"</script"};
    Sought styleCloser_{"</style"};
    std::vector<std::size_t> ahead_;
};

}  // namespace

std::string MailStore::visibleText(std::string_view raw, std::int64_t limit) {
    if (limit < 1 || raw.empty()) return {};
    return Scan(raw, limit).run();
}

}  // namespace brindlet
