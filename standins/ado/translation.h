#pragma once

#include <string_view>
#include <vector>

#include "standins/ado/dialect/dialect.h"

namespace tallyra::standins::ado {

// The statement in the words of the engine, as `Dialect::rewrite`. Throws Error where the dialect says that
// the engine must not get it: it reaches beyond the database, it is more than one, or a text in it meets a
// date column and is no date.
std::string_view translated(dialect::Dialect& dialect, std::string_view sql);

// The same for `Dialect::rewrite_form`.
std::string_view translated_form(dialect::Dialect& dialect, std::string_view sql,
                                 const std::vector<dialect::Literal>& literals,
                                 std::vector<dialect::LiteralUse>& uses);

// Throws the Error for a text, with its quotes, that meets a date column and is no date.
[[noreturn]] void refuse_as_date(std::string_view text);

// Engines end a statement at a NUL character and would run its front half: throws Error when there is one.
void refuse_nul(std::string_view sql);

}  // namespace tallyra::standins::ado
