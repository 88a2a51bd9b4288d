#pragma once

#include <string>

namespace tallyra::client {

// Whether the system says that a file could be made in the folder. Windows tells of no right before a file
// is made: there any folder that is there is taken to be writable.
bool folder_is_writable(const std::string& folder);

}  // namespace tallyra::client
