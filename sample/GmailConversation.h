#pragma once

#include "base/Cancel.h"
#include "sample/GmailMail.h"
#include "sample/GmailSettings.h"
#include "sample/ServerConnection.h"

namespace brindlet::sample {

/// Leads one conversation over a fresh connection to its end, with whatever the settings let go
/// wrong. Blocks until the client or the server has hung up, or the connection is cancelled.
void converse(ServerConnection& connection, GmailMail& mail, const GmailSettings& settings,
              const CancelToken& cancel);

}  // namespace brindlet::sample
