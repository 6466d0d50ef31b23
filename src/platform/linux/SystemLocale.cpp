#include "platform/linux/SystemLocale.h"

#include <unicode/datefmt.h>
#include <unicode/locid.h>
#include <unicode/numberformatter.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace brindlet {
namespace {

icu::Locale localeFor(const char* category, const Environment& environment) {
    std::string name;
    for (const char* variable : {"LC_ALL", category, "LANG"}) {
        const char* const value = environment(variable);
        if (!value || !*value) continue;
        name = value;
        break;
    }
    name.resize(std::min(name.find_first_of(".@"), name.size()));  // "de_DE.UTF-8@euro"
    if (name.empty() || name == "C" || name == "POSIX") name = "en_US";
    return icu::Locale(name.c_str());
}

/// Null when the library has no such format.
std::unique_ptr<icu::DateFormat> dateFormat(const Environment& environment) {
    std::unique_ptr<icu::DateFormat> format(icu::DateFormat::createDateTimeInstance(
        icu::DateFormat::kMedium, icu::DateFormat::kShort, localeFor("LC_TIME", environment)));
    if (!format) return nullptr;
    const char* const named = environment("TZ");
    std::unique_ptr<icu::TimeZone> zone;
    if (named && *named)
        zone.reset(icu::TimeZone::createTimeZone(
            icu::UnicodeString::fromUTF8(named + (*named == ':' ? 1 : 0))));
    if (!zone || *zone == icu::TimeZone::getUnknown())
        zone.reset(icu::TimeZone::detectHostTimeZone());
    format->adoptTimeZone(zone.release());
    return format;
}

/// Whole months from one moment to a later one, by the calendar: the 31st of January is a month
/// before the 28th of February.
std::int64_t monthsBetween(double fromUnix, double toUnix) {
    using namespace std::chrono;
    const auto day = [](double seconds) {
        return sys_days(days(static_cast<days::rep>(std::floor(seconds / 86400))));
    };
    const year_month_day from(day(fromUnix)), to(day(toUnix));
    const auto months = (to.year() / to.month() - from.year() / from.month()).count();
    const auto last = year_month_day(to.year() / to.month() / std::chrono::last).day();
    const auto anniversary = sys_days(to.year() / to.month() / std::min(from.day(), last));
    const double timeOfDay = fromUnix - std::floor(fromUnix / 86400) * 86400;
    const double reached =
        static_cast<double>(anniversary.time_since_epoch().count()) * 86400 + timeOfDay;
    return months - (reached > toUnix ? 1 : 0);
}

}  // namespace

struct SystemLocale::Formatter {
    icu::number::LocalizedNumberFormatter numbers;
    std::unique_ptr<icu::DateFormat> dates;
};

SystemLocale::SystemLocale(const Environment& environment)
    : formatter_(std::make_unique<Formatter>(
          Formatter{icu::number::NumberFormatter::withLocale(localeFor("LC_NUMERIC", environment)),
                    dateFormat(environment)})) {}

SystemLocale::~SystemLocale() = default;

std::string SystemLocale::grouped(std::int64_t number) const {
    UErrorCode status = U_ZERO_ERROR;
    std::string text;
    formatter_->numbers.formatInt(number, status).toString(status).toUTF8String(text);
    return U_SUCCESS(status) ? text : std::to_string(number);
}

std::string SystemLocale::relative(Date date, Date now) const {
    const bool past = date < now;
    const Date from = past ? date : now, to = past ? now : date;
    // Beyond what the calendar knows there are no words worth finding.
    constexpr double tenThousandYears = 3.2e11;
    const double seconds = std::min(to - from, tenThousandYears);
    const std::int64_t months = std::abs(from.unix()) < tenThousandYears
                                    ? monthsBetween(from.unix(), from.unix() + seconds)
                                    : 0;
    const auto whole = [&](double unit) { return static_cast<std::int64_t>(seconds / unit); };
    struct Unit {
        std::int64_t count;
        const char* name;
    };
    const Unit units[] = {
        {months / 12, "year"}, {months, "month"},     {whole(7 * 86400), "week"},
        {whole(86400), "day"}, {whole(3600), "hour"}, {whole(60), "minute"},
        {whole(1), "second"},
    };
    const auto* unit = std::find_if(std::begin(units), std::end(units),
                                    [](const Unit& candidate) { return candidate.count != 0; });
    if (unit == std::end(units)) return "in 0 seconds";
    const auto words = grouped(unit->count) + ' ' + unit->name + (unit->count == 1 ? "" : "s");
    return past ? words + " ago" : "in " + words;
}

std::string SystemLocale::dateTime(Date date) const {
    std::string text;
    if (!formatter_->dates) return text;
    icu::UnicodeString formatted;
    formatter_->dates->format(date.unix() * 1000, formatted).toUTF8String(text);
    return text;
}

}  // namespace brindlet
