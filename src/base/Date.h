#pragma once

#include <compare>
#include <string>

namespace brindlet {

/// A moment, as seconds since 2001-01-01 00:00:00 UTC with a fraction: the form in which the
/// store files hold it. It stays a double from file to file, since a detour over whole
/// nanoseconds would change the value and with it every identity that is built on it.
struct Date {
    double sinceReference = 0;

    /// Seconds between 1970-01-01 and 2001-01-01, both UTC.
    static constexpr double referenceInUnix = 978307200.0;

    static constexpr Date fromUnix(double seconds) { return {seconds - referenceInUnix}; }
    constexpr double unix() const { return sinceReference + referenceInUnix; }

    friend constexpr auto operator<=>(const Date&, const Date&) = default;
};

constexpr Date operator+(Date date, double seconds) {
    return {date.sinceReference + seconds};
}
constexpr Date operator-(Date date, double seconds) {
    return {date.sinceReference - seconds};
}
constexpr double operator-(Date later, Date earlier) {
    return later.sinceReference - earlier.sinceReference;
}

/// The shortest decimal text that reads back as the same double, in fixed notation and with at
/// least one decimal: "1700000000.0", "1700000000.25".
std::string shortestDecimal(double value);

}  // namespace brindlet
