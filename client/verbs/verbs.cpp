#include "client/verbs/all_verbs.h"

namespace tallyra::client {
namespace {

// In the order in which the help shows them: one a line.
const Verb* const table[] = {
    &init_verb,        &upgrade_verb,      &doctor_verb,        &grant_verb,      &revoke_verb, &rights_verb,
    &check_verb,       &close_verb,        &verify_verb,        &approve_verb,    &reopen_verb, &status_verb,
    &count_sheet_verb, &count_import_verb, &count_approve_verb, &count_undo_verb, &report_verb, &list_verb,
    &show_verb,        &log_verb,          &batch_verb,         &call_verb,       &help_verb,
};

}  // namespace

std::span<const Verb* const> verbs() {
  return table;
}

}  // namespace tallyra::client
