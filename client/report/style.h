#pragma once

#include <string_view>

namespace tallyra::client {

// How the report page looks: light or dark as the reader's system is, black on white on paper.
extern const std::string_view report_style;

}  // namespace tallyra::client
