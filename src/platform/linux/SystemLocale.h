#pragma once

#include <cstdlib>
#include <memory>

#include "platform/Locale.h"
#include "platform/linux/Environment.h"

namespace brindlet {

/// Numbers as the user's locale groups them, by ICU; the words are English, as all of the
/// program's. The C locale groups nothing, so where that or none is set, en_US takes its place.
class SystemLocale : public Locale {
  public:
    /// By LC_ALL, LC_NUMERIC or LANG, whichever comes first.
    explicit SystemLocale(const Environment& environment = ::getenv);
    ~SystemLocale() override;

    std::string grouped(std::int64_t number) const override;
    std::string relative(Date date, Date now) const override;

  private:
    struct Formatter;
    std::unique_ptr<Formatter> formatter_;
};

}  // namespace brindlet
