#pragma once

#include <cstdint>
#include <string_view>

namespace tallyra::standins::ado {

// What a statement does to transactions by its words.
enum class Control : std::uint8_t {
  none,
  inner,  // SAVEPOINT, RELEASE, ROLLBACK TO
  begin,
  commit,  // also END
  rollback,
};

Control control_of(std::string_view sql);

}  // namespace tallyra::standins::ado
