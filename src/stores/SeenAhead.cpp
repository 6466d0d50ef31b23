#include "stores/SeenAhead.h"

#include <string>
#include <utility>

#include "base/Files.h"
#include "stores/SeenFile.h"
#include "stores/StoreFile.h"

namespace brindlet {

/// Written by the task, and read after its end.
struct SeenAhead::Reading {
    std::shared_ptr<SeenTable> table;
};

SeenAhead::SeenAhead(const Directories& directories)
    : reading_(std::make_shared<Reading>()),
      task_(Task::start(
          TaskPriority::userInitiated,
          [reading = reading_, path = storeFile(directories, "seen.json")](const CancelToken&) {
              if (auto text = files::read(path)) reading->table = decodedSeen(*std::move(text));
          })) {}

std::shared_ptr<SeenTable> SeenAhead::take() {
    task_.wait();
    return std::move(reading_->table);
}

}  // namespace brindlet
