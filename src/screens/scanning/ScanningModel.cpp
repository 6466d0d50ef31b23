#include "screens/scanning/ScanningModel.h"

#include <algorithm>

#include "screens/QtText.h"
#include "session/AppState.h"
#include "words/SpokenWords.h"

namespace brindlet::screens {
namespace {

constexpr double sliver = 0.005;

}  // namespace

ScanningModel::ScanningModel(AppState& state) : state_(state) {}

void ScanningModel::refresh() {
    auto words = scanningWords(state_);
    const bool somethingToDo = *state_.total > 0;
    if (words == words_ && somethingToDo == somethingToDo_) return;
    words_ = std::move(words);
    somethingToDo_ = somethingToDo;
    std::vector<LinesModel::Line> stats;
    for (const auto& stat : words_.stats) stats.emplace_back(stat.value, stat.label);
    stats_.set(std::move(stats));
    Q_EMIT wordsChanged();
}

qreal ScanningModel::share() const {
    return somethingToDo_ ? std::max(words_.share, sliver) : 0;
}

QString ScanningModel::percent() const {
    return qtText(words_.percent);
}

QString ScanningModel::count() const {
    return qtText(words_.count);
}

QString ScanningModel::stage() const {
    return qtText(words_.stage);
}

QString ScanningModel::place() const {
    return qtText(words_.place);
}

QString ScanningModel::keepScanningLabel() const {
    return qtText(words_.keepScanning);
}

QString ScanningModel::stopLabel() const {
    return qtText(words_.stop);
}

QString ScanningModel::ringName() const {
    return qtText(spoken::progress);
}

void ScanningModel::setKeepsScanning(bool keeps) {
    state_.schedule.setPauseOnBattery(!keeps);
}

void ScanningModel::stop() {
    state_.stopScan();
}

}  // namespace brindlet::screens
