#pragma once

#include <cstdint>
#include <string_view>

#include "automation/object.h"
#include "standins/corvane/document_number.h"

namespace tallyra::standins::corvane {

// The table of the documents whose numbers stand in a key column. Throws Error bad_key_request for a column
// that no numbers are issued for.
std::string_view document_table(std::string_view key_column);

// The highest counter among the stored documents of the series, 0 without one. Over a connection of its own
// it sees committed documents only.
std::int32_t highest_stored_counter(const automation::Object& connection, std::string_view key_column,
                                    const Series& series);

}  // namespace tallyra::standins::corvane
