#pragma once

#include <string_view>

namespace tallyra::standins::ado {

// Throws Error -2147217911 for an ODBC connection string with a keyword by which the SQLite driver would load
// a library into this process (LoadExt), or it or the driver manager would read or write a file beside the
// database (Tracefile, FileDSN, SaveFile), or by which PostgreSQL's driver would run a text at once
// (ConnSettings), write logs (CommLog, Debug) or hand its library an option that is not taken (pqopt). DRIVER
// stays free to name any library as the driver. What a data source (DSN) says is its administrator's affair.
void refuse_reaching_keywords(std::string_view odbc_string);

}  // namespace tallyra::standins::ado
