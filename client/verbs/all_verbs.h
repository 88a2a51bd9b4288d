#pragma once

#include "client/verbs/verb.h"

// Every verb, one a line; each is defined in the file of its name in this folder.
namespace tallyra::client {

extern const Verb approve_verb;
extern const Verb batch_verb;
extern const Verb call_verb;
extern const Verb check_verb;
extern const Verb close_verb;
extern const Verb count_approve_verb;
extern const Verb count_import_verb;
extern const Verb count_sheet_verb;
extern const Verb count_undo_verb;
extern const Verb doctor_verb;
extern const Verb grant_verb;
extern const Verb help_verb;
extern const Verb init_verb;
extern const Verb list_verb;
extern const Verb log_verb;
extern const Verb reopen_verb;
extern const Verb report_verb;
extern const Verb revoke_verb;
extern const Verb rights_verb;
extern const Verb show_verb;
extern const Verb status_verb;
extern const Verb upgrade_verb;
extern const Verb verify_verb;

}  // namespace tallyra::client
