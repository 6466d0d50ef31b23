#pragma once

#include <optional>
#include <set>
#include <string>

#include "base/Observable.h"
#include "platform/Services.h"
#include "stores/PendingMove.h"

namespace brindlet {

/// The move that is not over, in "pending-move.json", so that one which the program's end cut off
/// can be finished at the next start. The file is there exactly while a move is unfinished. Main
/// thread; saves at once, unnoticed if that fails.
class Interrupted : public Observable {
  public:
    /// Loads the file. One that cannot be decoded counts as none and stays until the next move
    /// overwrites it; one with nothing left to do is removed.
    explicit Interrupted(Services services);

    Published<std::optional<PendingMove>> pending{*this};

    void begin(PendingMove move);
    /// Takes these messages off the list and counts them as done. A move with nothing left is still
    /// kept: whether it is over is the caller's to say.
    void markDone(const std::set<std::string>& messageIDs);
    void clear();

  private:
    void load();
    void save() const;
    std::string path_;
};

}  // namespace brindlet
