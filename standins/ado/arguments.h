#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "automation/member_table.h"
#include "standins/ado/enumerations.h"

// Reading what clients pass, with ADO's own error for what cannot be used: 3001.
namespace tallyra::standins::ado {

std::int32_t integer_value(const automation::Value& value);
std::string text_value(const automation::Value& value);
// The text itself when the value is one, else its text in `storage`.
std::string_view text_view(const automation::Value& value, std::string& storage);

// Nothing when the argument is absent.
std::optional<std::int32_t> integer_argument(automation::Arguments arguments, std::size_t position);
std::optional<std::string> text_argument(automation::Arguments arguments, std::size_t position);

CursorLocation cursor_location(std::int32_t number);
CursorType cursor_type(std::int32_t number);
LockType lock_type(std::int32_t number);
// The options of Execute and of Recordset.Open: how the text is meant and what is wanted of it.
std::int32_t execute_options(std::int32_t number);

// The statement that a source means under the options: itself, or all of the table it names. Throws 3001 for
// a blank one. `storage` keeps a text that had to be made.
std::string_view statement_of(std::string_view source, std::int32_t options, std::string& storage);

}  // namespace tallyra::standins::ado
