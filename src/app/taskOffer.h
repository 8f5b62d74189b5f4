// The user's tasks as changes that can be made while a file is tidied.
#pragma once

#include "platform/host.h"
#include "tidy/recordChange.h"

namespace app {

// Lists the tasks that can be used at the moment. `host` must remain valid while the offer is used.
tidy::ChangeOffer taskOffer(const platform::Host &host);

} // namespace app
