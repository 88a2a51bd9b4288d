#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tallyra::standins::ado {

// Makes the ODBC connection string of what a client gives: an ODBC connection string, or one for the ODBC
// provider (`Provider=MSDASQL;...`, also MSDASQL.1), whose `Extended Properties` hold ODBC keywords and whose
// `Data Source`, `Initial Catalog`, `User ID` and `Password` stand for DSN, DATABASE, UID and PWD. Everything
// else goes through as written. A user or password given beside the string takes the place of one in it.
// Throws Error 3706 for another provider.
std::string odbc_connection_string(std::string_view client_string, std::string_view user,
                                   std::string_view password);

// A value as a connection string holds it, in braces where it would be read back as another without them.
std::string in_braces_if_needed(std::string_view value);

// One of a connection string's keywords, as the client wrote them; those of `Extended Properties` in its
// place.
struct Keyword {
  std::string name;
  std::string value;  // without the braces or quotes around it
};

// All that an engine may want to know of what a client asks to be connected to.
struct ConnectionSource {
  std::string odbc_string;        // as `odbc_connection_string` makes it
  std::vector<Keyword> keywords;  // in their order, without Provider and without words that have no value
  bool names_provider = false;    // the string itself, which then means ODBC
  std::int32_t login_seconds = 0;

  // The value of the first keyword of the name, whatever its case; null when there is none.
  const std::string* find(std::string_view name) const;
};

// Throws Error 3706 for another provider than that for ODBC.
ConnectionSource read_connection_string(std::string_view client_string, std::string_view user,
                                        std::string_view password, std::int32_t login_seconds);

// An ODBC connection string without its passwords.
std::string without_password(std::string_view odbc_string);

// True for the name of the ODBC provider, whatever its case and version, and for no name at all.
bool is_odbc_provider(std::string_view provider);

}  // namespace tallyra::standins::ado
