#include "SampleHome.h"

#include "sample/MailLayout.h"

namespace brindlet::sample {

SampleHome::SampleHome(const SampleOptions& options)
    : outcome(makeMailStore(world.directories.home(), options, {})) {}

std::string SampleHome::dataRoot() const {
    return home() + '/' + std::string(dataRootInHome);
}

std::string SampleHome::indexPath() const {
    return dataRoot() + '/' + std::string(indexInDataRoot);
}

SampleHome& SampleHome::shared() {
    static SampleHome home{SampleOptions{}};
    return home;
}

}  // namespace brindlet::sample
