#pragma once

#include <string>
#include <vector>

#include "standins/ado/connection_string.h"

namespace tallyra::standins::ado {

// Whether the string names PostgreSQL's ODBC driver, and no provider.
bool means_postgresql(const ConnectionSource& source);

// How the library is told where and as whom to connect.
struct PostgresqlOptions {
  struct Option {
    std::string keyword;  // the library's own
    std::string value;
  };

  std::vector<Option> options;
  std::string completed_string;  // for the driver again, without any password

  const std::string* find(std::string_view keyword) const;
};

// Reads the keywords of the ODBC driver; `pqopt` holds more options of the library. What only says how the
// driver fetches and names types means nothing here. Throws Error for a keyword or an option that is not
// known or reaches beyond the database, and for one that is given twice; no text of an Error holds a value.
PostgresqlOptions read_postgresql_options(const ConnectionSource& source);

}  // namespace tallyra::standins::ado
