#pragma once

#include <cstdint>
#include <string_view>

namespace tallyra::standins::ado {

// The numbers that a client of a provider would see for what an engine says went wrong.

// By SQLSTATE, the five characters that most engines and ODBC's driver manager give a failure.
std::int32_t error_number_of_state(std::string_view state);

// By SQLite's result code and the words of its message. -1 stands for what its ODBC driver refuses by itself.
std::int32_t error_number_of_sqlite(std::int32_t code, std::string_view message);

}  // namespace tallyra::standins::ado
