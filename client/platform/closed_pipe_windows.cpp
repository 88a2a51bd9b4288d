#include "client/platform/closed_pipe.h"

// Here a write to a reader who has gone away fails, and nothing more.
namespace tallyra::client {

ClosedPipeIgnored::ClosedPipeIgnored() = default;
ClosedPipeIgnored::~ClosedPipeIgnored() = default;

}  // namespace tallyra::client
