#include "client/setup/schema.h"

#include "company/schema_upgrade.h"
#include "schema/description.h"

namespace tallyra::client {

std::vector<std::string> tables_there(const Reader& reader) {
  std::vector<std::string> names;
  for (const schema::Table& table : schema::tables())
    if (reader.has_table(table.name)) names.emplace_back(table.name);
  return names;
}

int schema_version(const Reader& reader) {
  if (reader.has_table(schema::version_table)) {
    const double version = reader.number("Select Max(" + std::string(schema::version_column) +
                                         ") As N From " + std::string(schema::version_table));
    if (version > 0) return static_cast<int>(version);
  }
  return tables_there(reader).empty() ? 0 : 1;
}

int newest_schema_version() {
  return schema::version;
}

std::string make_tables(const std::string& connection_string) {
  return company::upgrade_schema(connection_string);
}

}  // namespace tallyra::client
