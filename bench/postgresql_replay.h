#pragma once

#include "bench/replay.h"

namespace tallyra::bench {

// Through PostgreSQL's own library every text as it is, read and planned anew by the server each time.
Connect through_postgresql_by_text();

}  // namespace tallyra::bench
