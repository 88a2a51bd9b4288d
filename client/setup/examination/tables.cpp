#include <algorithm>
#include <set>

#include "automation/error.h"
#include "automation/folded_name.h"
#include "client/setup/examination/examination.h"
#include "client/setup/schema.h"
#include "schema/description.h"

// Whether the database has every table and column that the classes name.
namespace tallyra::client {
namespace {

// On SQLite the counters stand in a file beside the database.
bool is_expected(const Reader& reader, const schema::Table& table) {
  return table.name != schema::number_table || reader.engine() != "SQLite";
}

// The columns that the table lacks.
std::string missing_columns(const Reader& reader, const schema::Table& table) {
  const std::string first(table.columns.front().name);
  const Rows none =
      reader.rows("Select * From " + std::string(table.name) + " Where " + first + "<>" + first);
  std::set<std::string> there;
  for (const std::string& column : none.columns) there.insert(automation::folded(column));
  std::string missing;
  for (const schema::Column& column : table.columns)
    if (!there.contains(automation::folded(column.name)))
      missing.append(missing.empty() ? "" : ", ").append(table.name).append(".").append(column.name);
  return missing;
}

}  // namespace

void examine_tables(const Reader& reader, Observations& seen) {
  std::size_t good = 0;
  const std::size_t before = seen.size();
  for (const schema::Table& table : schema::tables()) {
    if (!is_expected(reader, table)) continue;
    const std::string name = "table " + std::string(table.name);
    if (!reader.has_table(table.name)) {
      seen.push_back(
          {Health::bad, name, "missing or not readable", "'upgrade' adds it; 'init' in an empty database"});
      continue;
    }
    const std::string missing = missing_columns(reader, table);
    if (missing.empty())
      ++good;
    else
      seen.push_back({Health::bad, name, "lacks " + missing, "'upgrade' adds columns that can be Null"});
  }
  if (seen.size() == before)
    seen.push_back({Health::good, "tables", std::to_string(good) + " tables with all their columns"});
  const int version = schema_version(reader);
  const std::string found =
      std::to_string(version) + "; this program makes " + std::to_string(newest_schema_version());
  if (version == newest_schema_version())
    seen.push_back({Health::good, "version of the tables", found});
  else
    seen.push_back(
        {version > newest_schema_version() ? Health::bad : Health::doubtful, "version of the tables", found,
         version > newest_schema_version() ? "use the newer program" : "'upgrade' brings them up to date"});
}

}  // namespace tallyra::client
