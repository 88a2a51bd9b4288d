#pragma once

#include <string>
#include <string_view>

namespace tallyra::standins::ado {

// Makes the ODBC connection string of what a client gives: an ODBC connection string, or one for the ODBC
// provider (`Provider=MSDASQL;...`, also MSDASQL.1), whose `Extended Properties` hold ODBC keywords and whose
// `Data Source`, `Initial Catalog`, `User ID` and `Password` stand for DSN, DATABASE, UID and PWD. Everything
// else goes through as written. A user or password given beside the string takes the place of one in it.
// Throws Error 3706 for another provider.
std::string odbc_connection_string(std::string_view client_string, std::string_view user,
                                   std::string_view password);

// An ODBC connection string without its passwords.
std::string without_password(std::string_view odbc_string);

// True for the name of the ODBC provider, whatever its case and version, and for no name at all.
bool is_odbc_provider(std::string_view provider);

}  // namespace tallyra::standins::ado
