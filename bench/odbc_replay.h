#pragma once

#include <cstdint>
#include <string>

namespace tallyra::bench {

// Sends the statements of a log again through plain ODBC, in their order and on as many connections, reading
// every row of every result. Throws std::runtime_error when one fails that had succeeded. Returns how many
// were sent.
std::uint64_t replay(const std::string& log_path);

}  // namespace tallyra::bench
