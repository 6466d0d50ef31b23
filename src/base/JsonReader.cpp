#include <simdjson.h>

#include <vector>

#include "base/Json.h"
#include "base/JsonScalars.h"

namespace brindlet {
namespace {

namespace ondemand = simdjson::ondemand;

constexpr std::size_t deepest = 512;

std::string_view trimmedEnd(std::string_view token) {
    return token.substr(0, token.find_last_not_of(" \t\n\r") + 1);
}

}  // namespace

/// simdjson indexes the whole text first, which is where UTF-8, open strings and raw control
/// characters are found; what it then checks lazily, value by value, is forced here by walking over
/// everything. After its first error none of its iterators may be touched again: `failed` sees to
/// that.
struct JsonReader::State {
    struct Frame {
        bool isObject = false;
        bool entered = false;
        simdjson::ondemand::object_iterator members;
        simdjson::ondemand::array_iterator elements;
    };

    std::string text;
    std::size_t size = 0;
    ondemand::parser parser;
    ondemand::document document;
    ondemand::value value;
    std::vector<Frame> frames;
    /// Standing at a value that was not taken yet.
    bool pending = false;
    /// The top value is a number that was skipped, so the parser still stands before it.
    bool loneNumber = false;
    bool failed = false;

    bool atEnd() {
        if (loneNumber) {
            const auto all = trimmedEnd(std::string_view(text).substr(0, size));
            return token().data() + token().size() == all.data() + all.size();
        }
        // The parser is at its end when it can no longer say where it is.
        return document.current_location().error() == simdjson::OUT_OF_BOUNDS;
    }

    bool atRoot() const { return frames.empty(); }

    /// Marks the value as taken; false when there is none to take.
    bool take() {
        if (failed || !pending) {
            failed = true;
            return false;
        }
        pending = false;
        return true;
    }

    template <class T>
    bool require(simdjson::simdjson_result<T> result, T& out) {
        if (std::move(result).get(out) == simdjson::SUCCESS) return true;
        failed = true;
        return false;
    }

    /// The text of the scalar that the reader stands at.
    std::string_view token() {
        std::string_view raw;
        if (!atRoot()) return trimmedEnd(value.raw_json_token());
        if (document.raw_json_token().get(raw) != simdjson::SUCCESS) return {};
        return trimmedEnd(raw);
    }

    char first() {
        const auto scalar = token();
        return scalar.empty() ? '\0' : scalar.front();
    }

    std::string_view unescaped(simdjson::ondemand::raw_json_string raw) {
        const auto offset = raw.raw() - text.data();
        const auto result = unescapeJsonInPlace(text.data() + offset);
        if (!result) failed = true;
        return result.value_or(std::string_view());
    }

    bool push(Frame frame) {
        if (frames.size() == deepest) {
            failed = true;
            return false;
        }
        frames.push_back(frame);
        return true;
    }
};

JsonReader::JsonReader(std::string text) : state_(std::make_unique<State>()) {
    auto& s = *state_;
    s.size = text.size();
    s.text = std::move(text);
    // The parser looks a little past the end, and must find nothing there that could be JSON.
    s.text.append(simdjson::SIMDJSON_PADDING, '\0');
    const simdjson::padded_string_view padded(s.text.data(), s.size, s.text.size());
    s.failed = s.parser.iterate(padded).get(s.document) != simdjson::SUCCESS;
    s.pending = true;
}

JsonReader::~JsonReader() = default;

bool JsonReader::ok() const {
    return !state_->failed;
}
void JsonReader::fail() {
    state_->failed = true;
}

bool JsonReader::takeNull() {
    auto& s = *state_;
    if (s.failed || !s.pending || s.first() != 'n') return false;
    // At the top the parser's own test lets a trailing character pass.
    bool isNull = s.token() == "null";
    if (isNull) isNull = s.atRoot() ? s.document.is_null() : s.value.is_null();
    s.pending = false;
    if (!isNull) s.failed = true;
    return isNull;
}

bool JsonReader::boolean() {
    auto& s = *state_;
    bool flag = false;
    if (!s.take()) return false;
    // At the top the parser looks at five characters and no further.
    const auto word = s.token();
    if (word != "true" && word != "false") s.failed = true;
    if (!s.failed) s.require(s.atRoot() ? s.document.get_bool() : s.value.get_bool(), flag);
    return flag && !s.failed;
}

std::int64_t JsonReader::integer() {
    auto& s = *state_;
    if (!s.take()) return 0;
    std::int64_t whole = 0;
    auto plain = s.atRoot() ? s.document.get_int64() : s.value.get_int64();
    if (std::move(plain).get(whole) == simdjson::SUCCESS) return whole;
    const auto exact = wholeJsonNumber(s.token());
    double consumed = 0;
    if (!exact ||
        !s.require(s.atRoot() ? s.document.get_double() : s.value.get_double(), consumed)) {
        s.failed = true;
        return 0;
    }
    return *exact;
}

double JsonReader::number() {
    auto& s = *state_;
    double number = 0;
    if (!s.take()) return 0;
    s.require(s.atRoot() ? s.document.get_double() : s.value.get_double(), number);
    return s.failed ? 0 : number;
}

std::string_view JsonReader::stringView() {
    auto& s = *state_;
    simdjson::ondemand::raw_json_string raw;
    if (!s.take()) return {};
    if (!s.require(s.atRoot() ? s.document.get_raw_json_string() : s.value.get_raw_json_string(),
                   raw))
        return {};
    return s.unescaped(raw);
}

void JsonReader::skip() {
    auto& s = *state_;
    if (s.failed || !s.pending) return fail();
    switch (s.first()) {
        case '{':
            object([this](std::string_view) { skip(); });
            return;
        case '[':
            array([this] { skip(); });
            return;
        case '"':
            stringView();
            return;
        case 't':
        case 'f':
            boolean();
            return;
        case 'n':
            takeNull();
            return;
        default:
            // Left to the parser to step over: it would refuse a number that no double can hold,
            // which is no damage as long as nobody asks for it.
            if (!s.take()) return;
            if (!isJsonNumber(s.token())) s.failed = true;
            s.loneNumber = s.atRoot();
    }
}

bool JsonReader::enterObject() {
    auto& s = *state_;
    ondemand::object object;
    State::Frame frame;
    frame.isObject = true;
    return s.take() &&
           s.require(s.atRoot() ? s.document.get_object() : s.value.get_object(), object) &&
           s.require(object.begin(), frame.members) && s.push(frame);
}

bool JsonReader::nextMember(std::string_view& key) {
    auto& s = *state_;
    if (!s.failed && s.pending) skip();
    if (s.failed) return false;
    auto& frame = s.frames.back();
    if (frame.entered) ++frame.members;
    frame.entered = true;
    if (!(frame.members != frame.members)) {
        s.frames.pop_back();
        return false;
    }
    ondemand::field field;
    if (!s.require(*frame.members, field)) return false;
    key = s.unescaped(field.key());
    s.value = field.value();
    s.pending = !s.failed;
    return !s.failed;
}

bool JsonReader::enterArray() {
    auto& s = *state_;
    ondemand::array array;
    State::Frame frame;
    return s.take() &&
           s.require(s.atRoot() ? s.document.get_array() : s.value.get_array(), array) &&
           s.require(array.begin(), frame.elements) && s.push(frame);
}

bool JsonReader::nextElement() {
    auto& s = *state_;
    if (!s.failed && s.pending) skip();
    if (s.failed) return false;
    auto& frame = s.frames.back();
    if (frame.entered) ++frame.elements;
    frame.entered = true;
    if (!(frame.elements != frame.elements)) {
        s.frames.pop_back();
        return false;
    }
    s.pending = s.require(*frame.elements, s.value);
    return s.pending;
}

bool JsonReader::finish() {
    auto& s = *state_;
    if (s.pending || !s.frames.empty() || (!s.failed && !s.atEnd())) s.failed = true;
    return !s.failed;
}

}  // namespace brindlet
