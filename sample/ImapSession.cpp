#include "sample/ImapSession.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "base/Utf8.h"
#include "sample/FetchRequest.h"
#include "sample/ModifiedUtf7.h"
#include "sample/UidSet.h"

namespace brindlet::sample {
namespace {

constexpr std::string_view capabilities = "CAPABILITY IMAP4rev1 LITERAL+ SPECIAL-USE X-GM-EXT-1";
constexpr const char* notUnderstood = "BAD That is not understood";

/// IMAP writes names in a form of its own. Plain UTF-8, which Gmail itself need not take, is taken
/// here as well: Brindlet sends names as they are.
std::optional<std::string> fromWire(const std::string& written) {
    if (auto name = fromModifiedUtf7(written)) return name;
    return isValidUtf8(written) ? std::optional(written) : std::nullopt;
}

bool matches(std::string_view name, std::string_view pattern) {
    if (pattern.empty()) return name.empty();
    const char first = pattern.front();
    const std::string_view rest = pattern.substr(1);
    if (first != '*' && first != '%')
        return name.starts_with(first) && matches(name.substr(1), rest);
    for (std::size_t length = 0; length <= name.size(); ++length) {
        if (matches(name.substr(length), rest)) return true;
        if (first == '%' && name.substr(length).starts_with('/')) return false;
    }
    return false;
}

std::string joined(const std::vector<std::string>& words) {
    std::string all;
    for (const std::string& word : words) all += (all.empty() ? "" : " ") + word;
    return all;
}

/// One label, or several in parentheses; none when that is not what follows.
std::optional<std::vector<std::string>> labelsFrom(ImapParser& parser) {
    std::vector<std::string> labels;
    const bool several = parser.take("(");
    if (several && parser.take(")")) return labels;
    do {
        const auto written = parser.label();
        auto label = written ? fromWire(*written) : std::nullopt;
        if (!label || label->empty()) return std::nullopt;
        labels.push_back(std::move(*label));
    } while (several && parser.take(" "));
    if (several && !parser.take(")")) return std::nullopt;
    return labels;
}

}  // namespace

struct ImapSession::Verb {
    std::string_view name;
    Reply (ImapSession::*carryOut)(ImapParser&);
    enum class Needs { nothing, noLogin, login, mailbox } needs = Needs::nothing;
};

ImapSession::ImapSession(Login login, Send send, const ImapFaults& faults)
    : login_(std::move(login)), send_(std::move(send)), faults_(faults) {}

void ImapSession::bytes(std::string_view bytes) {
    if (!ended_ && !send_(bytes)) ended_ = true;
}

void ImapSession::line(std::string_view text) {
    bytes(std::string(text) + "\r\n");
}

void ImapSession::lastLine(const std::string& tag, const Reply& reply) {
    if (faults_.hugeLine > 0)
        line("* OK " + std::string(static_cast<std::size_t>(faults_.hugeLine), 'x'));
    line(tag + ' ' + reply + (faults_.invalidUtf8 ? " \xC3(\xFF" : ""));
}

void ImapSession::greet() {
    const bool leaves = faults_.bye == 0;
    line(leaves ? "* BYE Not today" : "* OK Ready");
    ended_ = ended_ || leaves;
}

void ImapSession::receive(std::string_view bytes) {
    input_.add(bytes);
    while (!ended_) {
        switch (input_.next()) {
            case ImapInput::Event::none:
                return;
            case ImapInput::Event::command:
                execute(input_.command());
                break;
            case ImapInput::Event::literal:
                line("+ Go on");
                break;
            case ImapInput::Event::tooMuch:
                line("* BYE That is too long");
                ended_ = true;
                break;
        }
    }
}

void ImapSession::execute(const std::string& command) {
    ImapParser parser(command);
    const auto tag = parser.atom();
    if (!tag || tag->find('+') != std::string::npos || !parser.take(" "))
        return line("* BAD A command begins with a tag");
    ++commands_;
    if (carriesFault(*tag)) return;
    const Reply reply = carryOut(parser);
    lastLine(*tag, reply);
    ended_ = ended_ || leaves_;
}

bool ImapSession::carriesFault(const std::string& tag) {
    if (commands_ == faults_.bye) {
        line("* BYE Enough for now");
        ended_ = true;
    } else if (commands_ == faults_.no) {
        lastLine(tag, "NO That cannot be done now");
    } else if (commands_ == faults_.bad) {
        lastLine(tag, notUnderstood);
    } else {
        return false;
    }
    return true;
}

ImapSession::Reply ImapSession::carryOut(ImapParser& parser) {
    using Needs = Verb::Needs;
    static constexpr std::array<Verb, 8> verbs{{
        {"CAPABILITY", &ImapSession::capability},
        {"NOOP", &ImapSession::noop},
        {"LOGOUT", &ImapSession::logout},
        {"LOGIN", &ImapSession::login, Needs::noLogin},
        {"LIST", &ImapSession::list, Needs::login},
        {"SELECT", &ImapSession::select, Needs::login},
        {"EXAMINE", &ImapSession::examine, Needs::login},
        {"UID", &ImapSession::uid, Needs::mailbox},
    }};
    const auto word = parser.atom();
    const auto verb = std::find_if(verbs.begin(), verbs.end(), [&](const Verb& each) {
        return word && sameAscii(each.name, *word);
    });
    if (verb == verbs.end()) return notUnderstood;
    const bool allowed =
        verb->needs == Needs::nothing || (verb->needs == Needs::noLogin && !account_) ||
        (verb->needs == Needs::login && account_) || (verb->needs == Needs::mailbox && mailbox_);
    return allowed ? (this->*verb->carryOut)(parser) : "BAD This is not the time for it";
}

ImapSession::Reply ImapSession::capability(ImapParser& parser) {
    if (!parser.atEnd()) return notUnderstood;
    line("* " + std::string(capabilities));
    return "OK That is all";
}

ImapSession::Reply ImapSession::noop(ImapParser& parser) {
    return parser.atEnd() ? "OK Nothing done" : notUnderstood;
}

ImapSession::Reply ImapSession::logout(ImapParser& parser) {
    if (!parser.atEnd()) return notUnderstood;
    line("* BYE Until next time");
    leaves_ = true;
    return "OK Farewell";
}

ImapSession::Reply ImapSession::login(ImapParser& parser) {
    if (!parser.take(" ")) return notUnderstood;
    const auto address = parser.text();
    if (!address || !parser.take(" ")) return notUnderstood;
    const auto password = parser.text();
    if (!password || !parser.atEnd()) return notUnderstood;
    account_ = login_(*address, *password);
    return account_ ? "OK Come in" : "NO [AUTHENTICATIONFAILED] Address or password is wrong";
}

ImapSession::Reply ImapSession::list(ImapParser& parser) {
    if (!parser.take(" ")) return notUnderstood;
    const auto reference = parser.text();
    if (!reference || !parser.take(" ")) return notUnderstood;
    auto pattern = parser.wildcards();
    if (!pattern) pattern = parser.text();
    if (!pattern || !parser.atEnd()) return notUnderstood;
    if (pattern->empty()) {
        line(R"(* LIST (\Noselect) "/" "")");
        return "OK That is all";
    }
    for (const ImapAccount::Name& mailbox : account_->mailboxes()) {
        const std::string written = toModifiedUtf7(mailbox.name);
        if (matches(written, *reference + *pattern))
            line("* LIST (" + joined(mailbox.attributes) + ") \"/\" " + imapQuoted(written));
    }
    return "OK That is all";
}

ImapSession::Reply ImapSession::select(ImapParser& parser) {
    return open(parser, false);
}

ImapSession::Reply ImapSession::examine(ImapParser& parser) {
    return open(parser, true);
}

ImapSession::Reply ImapSession::open(ImapParser& parser, bool readOnly) {
    if (!parser.take(" ")) return notUnderstood;
    const auto written = parser.text();
    if (!written || !parser.atEnd()) return notUnderstood;
    // One that cannot be opened closes the one before it all the same.
    const auto name = fromWire(*written);
    mailbox_ = name ? account_->open(*name) : std::nullopt;
    if (!mailbox_) return "NO [NONEXISTENT] There is no such mailbox";
    readOnly_ = readOnly;
    line(R"(* FLAGS (\Seen \Flagged))");
    line("* " + std::to_string(mailbox_->messages.size()) + " EXISTS");
    line("* 0 RECENT");
    line("* OK [PERMANENTFLAGS ()] Flags stay as they are");
    line("* OK [UIDVALIDITY " + std::to_string(mailbox_->validity) + "] So long do UIDs hold");
    line("* OK [UIDNEXT " + std::to_string(mailbox_->nextUid) + "] The next one");
    return readOnly ? "OK [READ-ONLY] Opened" : "OK [READ-WRITE] Opened";
}

ImapSession::Reply ImapSession::uid(ImapParser& parser) {
    if (parser.take(" FETCH ")) return fetch(parser);
    if (parser.take(" STORE ")) return store(parser);
    if (parser.take(" SEARCH ")) return search(parser);
    return notUnderstood;
}

ImapSession::Reply ImapSession::fetch(ImapParser& parser) {
    const auto written = parser.wildcards();
    const auto set = written ? UidSet::parse(*written) : std::nullopt;
    if (!set || !parser.take(" ")) return notUnderstood;
    const auto request = FetchRequest::parse(parser);
    if (!request || !parser.atEnd()) return notUnderstood;
    for (const std::size_t i : set->in(*mailbox_)) {
        bytes(request->answer(*account_, i + 1, mailbox_->messages[i]));
        if (ended_) break;
    }
    return "OK That is all";
}

ImapSession::Reply ImapSession::search(ImapParser& parser) {
    if (!parser.take("ALL") || !parser.atEnd()) return notUnderstood;
    std::string found = "* SEARCH";
    for (const auto& message : mailbox_->messages) found += ' ' + std::to_string(message.uid);
    line(found);
    return "OK That is all";
}

ImapSession::Reply ImapSession::store(ImapParser& parser) {
    const auto written = parser.wildcards();
    const auto set = written ? UidSet::parse(*written) : std::nullopt;
    if (!set || !parser.take(" ")) return notUnderstood;
    const bool adds = parser.take("+X-GM-LABELS");
    if (!adds && !parser.take("-X-GM-LABELS")) return notUnderstood;
    const bool silent = parser.take(".SILENT");
    if (!parser.take(" ")) return notUnderstood;
    const auto labels = labelsFrom(parser);
    if (!labels || !parser.atEnd()) return notUnderstood;
    if (readOnly_) return "NO The mailbox is open for reading only";
    for (const std::string& label : *labels)
        if (!account_->mayChange(label)) return "NO [CANNOT] That is no label to put on or off";
    bool done = true;
    for (const std::size_t i : set->in(*mailbox_)) {
        const auto& message = mailbox_->messages[i];
        if (!account_->marks(message.message)) continue;
        for (const std::string& label : *labels)
            done = (adds ? account_->addLabel(message.message, label)
                         : account_->removeLabel(message.message, label)) &&
                   done;
        if (!silent) bytes(FetchRequest::labels().answer(*account_, i + 1, message));
    }
    return done ? "OK Done" : "NO Not all labels could be changed";
}

}  // namespace brindlet::sample
