#include "client/exit_status.h"

namespace tallyra::client {
namespace {

constexpr ExitMeaning meanings[] = {
    {exit_done, "done; a check has found no error"},
    {exit_failed, "refused or failed; a check or a verification has found errors"},
    {exit_wrong_usage, "wrong usage: no such verb, class or member, wrong options or arguments"},
    {exit_locked, "another one is at work and holds the lock"},
    {exit_interrupted, "interrupted by the second Ctrl-C or TERM"},
};

}  // namespace

std::span<const ExitMeaning> exit_meanings() {
  return meanings;
}

}  // namespace tallyra::client
