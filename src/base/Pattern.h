#pragma once

#include <memory>
#include <string_view>

namespace brindlet {

/// A regular expression of the Perl family, with inline flags, over UTF-8 and with Unicode's
/// properties behind \b, \s and case folding (PCRE2: UTF, UCP, JIT). Compiled once; safe to use
/// from many threads at once.
class Pattern {
  public:
    /// A pattern that does not compile is a fault in the program: it ends in an assertion, and in a
    /// release build in a pattern that never matches.
    explicit Pattern(std::string_view expression);
    ~Pattern();
    Pattern(const Pattern&) = delete;
    Pattern& operator=(const Pattern&) = delete;

    /// True when the pattern matches anywhere in the text. An error in matching, invalid UTF-8
    /// included, counts as no match.
    bool occursIn(std::string_view text) const;

  private:
    struct Compiled;
    std::unique_ptr<Compiled> compiled_;
};

}  // namespace brindlet
