#pragma once

#include <cstdlib>
#include <memory>

#include "platform/Locale.h"
#include "platform/linux/Environment.h"

namespace brindlet {

/// Numbers and dates as the user's locale writes them, by ICU; the words of a span of time are
/// English, as all of the program's. The C locale groups nothing, so where that or none is set,
/// en_US takes its place.
class SystemLocale : public Locale {
  public:
    /// By LC_ALL, then LC_NUMERIC for numbers and LC_TIME for dates, then LANG. The zone is the one
    /// that TZ names, or else the system's.
    explicit SystemLocale(const Environment& environment = ::getenv);
    ~SystemLocale() override;

    std::string grouped(std::int64_t number) const override;
    std::string relative(Date date, Date now) const override;
    std::string dateTime(Date date) const override;

  private:
    struct Formatter;
    std::unique_ptr<Formatter> formatter_;
};

}  // namespace brindlet
