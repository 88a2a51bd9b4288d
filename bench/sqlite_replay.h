#pragma once

#include "bench/replay.h"

namespace tallyra::bench {

// Through SQLite's own library every text as it is, compiled anew each time.
Connect through_sqlite_by_text();

// The same where texts of one shape share a statement, compiled once per connection, with their literals
// bound. A real number is bound as the nearest double, which in rare cases is another than SQLite's own
// reading of the text: what is measured does not depend on it.
Connect through_sqlite_by_shape();

}  // namespace tallyra::bench
