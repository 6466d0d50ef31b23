#pragma once

#include <set>
#include <string>
#include <string_view>

namespace brindlet::doubles {

/// Every line that a client of ours has sent to a mail server in this test program, so that one
/// test can hold all others to what may be sent at all. Any thread.
class SentBytes {
  public:
    static void record(std::string_view bytes);
    static std::set<std::string> everything();

    /// Why this may not be sent; empty when it may. Only LOGIN, SELECT, the one fetch and the
    /// storing of labels may, each as one whole line. A text of the person's may hold any word but
    /// the flag that deletes, since it stands where an argument does.
    static std::string breach(std::string_view bytes);
};

}  // namespace brindlet::doubles
