#pragma once

#include <libpq-fe.h>

#include <string>
#include <vector>

#include "standins/ado/postgresql/type_oids.h"
#include "standins/ado/postgresql/wire.h"

namespace tallyra::standins::ado {

struct MadeColumn {
  std::string name;
  Oid type = oid::varying;
  int modifier = -1;
};

// A result of a query as a server sends it, made without one; null is a null pointer.
inline Result made_result(std::vector<MadeColumn> columns,
                          const std::vector<std::vector<const char*>>& rows) {
  Result result(PQmakeEmptyPGresult(nullptr, PGRES_TUPLES_OK));
  std::vector<PGresAttDesc> described;
  for (MadeColumn& column : columns)
    described.push_back({column.name.data(), 0, 0, 0, column.type, -1, column.modifier});
  PQsetResultAttrs(result.get(), static_cast<int>(described.size()), described.data());
  for (std::size_t row = 0; row < rows.size(); ++row)
    for (std::size_t i = 0; i < rows[row].size(); ++i) {
      std::string value = rows[row][i] ? rows[row][i] : "";
      PQsetvalue(result.get(), static_cast<int>(row), static_cast<int>(i),
                 rows[row][i] ? value.data() : nullptr, rows[row][i] ? static_cast<int>(value.size()) : -1);
    }
  return result;
}

}  // namespace tallyra::standins::ado
