#pragma once

#include "bench/replay.h"

namespace tallyra::bench {

// Texts through plain ODBC, every column bound as text.
Connect through_odbc();

}  // namespace tallyra::bench
