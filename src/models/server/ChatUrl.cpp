#include "models/server/ChatUrl.h"

#include <algorithm>

namespace brindlet {
namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// `lower` has its letters small.
bool equalsIgnoringCase(std::string_view text, std::string_view lower) {
    return std::ranges::equal(text, lower, [](char a, char b) {
        return (a >= 'A' && a <= 'Z' ? static_cast<char>(a + ('a' - 'A')) : a) == b;
    });
}

/// The plainest spelling alone: no sign, no leading zero, which some read as octal.
std::optional<int> decimal(std::string_view text, int most) {
    if (text.empty() || (text.size() > 1 && text.front() == '0')) return std::nullopt;
    int value = 0;
    for (const char c : text) {
        if (!isDigit(c)) return std::nullopt;
        value = value * 10 + (c - '0');
        if (value > most) return std::nullopt;
    }
    return value;
}

/// What stands before the separator, taken off the front together with it; all when there is none.
std::string_view takeUntil(std::string_view& text, char separator) {
    const auto end = std::min(text.find(separator), text.size());
    const auto piece = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return piece;
}

bool isLoopbackV4(std::string_view host) {
    if (std::ranges::count(host, '.') != 3) return false;
    bool first = true;
    for (int i = 0; i < 4; ++i) {
        const auto number = decimal(takeUntil(host, '.'), 255);
        if (!number || (first && *number != 127)) return false;
        first = false;
    }
    return true;
}

/// The host as it goes into the address; empty when it is not this machine.
std::string_view loopbackHost(std::string_view host) {
    if (equalsIgnoringCase(host, "localhost")) return "127.0.0.1";
    return host == "[::1]" || isLoopbackV4(host) ? host : std::string_view();
}

/// Empty, or "/" and pieces none of which is empty or leads upwards.
bool isPlainPath(std::string_view path) {
    if (path.empty()) return true;
    if (path.front() != '/') return false;
    path.remove_prefix(1);
    while (true) {
        const bool last = path.find('/') == std::string_view::npos;
        const auto piece = takeUntil(path, '/');
        const auto plain = [](char c) {
            return isLetter(c) || isDigit(c) ||
                   std::string_view("-._~").find(c) != std::string_view::npos;
        };
        if (piece.empty() || piece == "." || piece == ".." || !std::ranges::all_of(piece, plain))
            return false;
        if (last) return true;
    }
}

void dropEnd(std::string_view& path, std::string_view end) {
    if (path.ends_with(end)) path.remove_suffix(end.size());
}

}  // namespace

std::optional<std::string> chatUrl(std::string_view server) {
    constexpr std::string_view scheme = "http://";
    if (!equalsIgnoringCase(server.substr(0, scheme.size()), scheme)) return std::nullopt;
    server.remove_prefix(scheme.size());

    const auto pathStart = std::min(server.find('/'), server.size());
    const auto authority = server.substr(0, pathStart);
    auto path = server.substr(pathStart);
    // The colon of a port comes after those of a bracketed address.
    const auto hostEnd =
        std::min(authority.find(':', authority.starts_with('[') ? authority.find(']') : 0),
                 authority.size());
    const auto host = loopbackHost(authority.substr(0, hostEnd));
    if (host.empty()) return std::nullopt;
    const auto port = authority.substr(hostEnd);
    if (!port.empty() && decimal(port.substr(1), 65535).value_or(0) == 0) return std::nullopt;

    dropEnd(path, "/");
    if (!isPlainPath(path)) return std::nullopt;
    dropEnd(path, "/v1/chat/completions");
    dropEnd(path, "/v1");
    std::string url(scheme);
    url += host;
    url += port;
    url += path;
    url += "/v1/chat/completions";
    return url;
}

}  // namespace brindlet
