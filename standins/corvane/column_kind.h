#pragma once

#include <cstdint>

namespace tallyra::standins::corvane {

// What a column takes, as far as the writing of its literals goes.
enum class ColumnKind { text, whole_number, number, boolean, date, any, unsupported };

// From the Type of a recordset's field, a number of ADO's DataTypeEnum. Times without a day, bytes and
// whatever else has no literal in the statements of this system are unsupported: such a column takes Null
// only.
ColumnKind column_kind(std::int32_t data_type);

}  // namespace tallyra::standins::corvane
