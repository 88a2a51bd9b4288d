#pragma once

namespace tallyra::standins::lexbank {

// Registers Lexbank.ErrMsg and Lexbank.CPartF for this process.
void register_classes();

}  // namespace tallyra::standins::lexbank
