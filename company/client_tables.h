#pragma once

#include <string_view>

#include "schema/description.h"

namespace tallyra::company {

// The tables that the console client makes on first use. They are not part of a company, but what is known of
// it stands in one of them.

inline constexpr std::string_view client_lock_table = "TALLYRALOCK";

// Who closed, approved, counted what and when. Has the columns that the client gives it.
const schema::Table& client_journal_table();

}  // namespace tallyra::company
