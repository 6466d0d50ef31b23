#pragma once

#include <memory>

#include "base/Task.h"

namespace brindlet {

class Directories;
class SeenTable;

/// The list of all that was ever decided, read on a thread of its own: a start over a long one has
/// other things to do meanwhile. Main thread.
class SeenAhead {
  public:
    /// Begins. Whoever writes the file afterwards is not noticed.
    explicit SeenAhead(const Directories& directories);

    /// Waits for the end and gives the list away; none when the file is missing or damaged.
    std::shared_ptr<SeenTable> take();

  private:
    struct Reading;
    std::shared_ptr<Reading> reading_;
    Task task_;
};

}  // namespace brindlet
