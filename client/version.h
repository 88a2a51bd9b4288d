#pragma once

#include <string>

namespace tallyra::client {

// "tallyra-client 1.0.0" with a line end.
std::string version_text();

}  // namespace tallyra::client
