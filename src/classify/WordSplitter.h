#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brindlet {

/// Splits subjects into their lower-cased words, one after another, with no allocation for ASCII
/// once it has seen the longest. The words are those of `Classifier::subjectWords`. One thread.
class WordSplitter {
  public:
    /// Valid until the next call, and padded for an `Interner`.
    const std::vector<std::string_view>& split(std::string_view subject);

  private:
    void splitAscii(std::size_t length);
    void splitUnicode(std::string_view subject);

    std::string lowered_;
    std::vector<std::string_view> words_;
};

}  // namespace brindlet
