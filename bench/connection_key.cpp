#include "bench/connection_key.h"

#include <algorithm>

#include "automation/folded_name.h"

namespace tallyra::bench {

std::string connection_key(std::string_view connection_string, std::string_view key) {
  while (!connection_string.empty()) {
    const std::string_view pair = connection_string.substr(0, connection_string.find(';'));
    connection_string.remove_prefix(std::min(pair.size() + 1, connection_string.size()));
    const std::size_t equals = pair.find('=');
    if (equals == std::string_view::npos || !automation::equals_folded(pair.substr(0, equals), key)) continue;
    std::string_view value = pair.substr(equals + 1);
    if (value.starts_with('{') && value.ends_with('}')) value = value.substr(1, value.size() - 2);
    return std::string(value);
  }
  return {};
}

}  // namespace tallyra::bench
