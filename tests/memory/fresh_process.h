#pragma once

#include <functional>
#include <string>

namespace tallyra::memory {

// Runs a check in a process of its own, a fork of this one, so that what it meets is the first of its kind
// there. Returns the check's text, or how the process has ended instead.
std::string in_fresh_process(const std::function<std::string()>& check);

}  // namespace tallyra::memory
