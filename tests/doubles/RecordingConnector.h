#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/TlsStream.h"

namespace brindlet::doubles {

/// Makes another's connections, each sent byte of which goes into the `SentBytes`.
class RecordingConnector : public TlsConnector {
  public:
    /// The other outlives it.
    explicit RecordingConnector(TlsConnector& real) : real_(real) {}
    std::shared_ptr<TlsStream> make(const std::string& host, std::uint16_t port) override;

  private:
    TlsConnector& real_;
};

}  // namespace brindlet::doubles
