#pragma once

#include <string>
#include <string_view>

namespace tallyra::bench {

// The value of a key of a connection string, without braces around it; the letters' case does not count.
// Empty when the key is not there.
std::string connection_key(std::string_view connection_string, std::string_view key);

}  // namespace tallyra::bench
