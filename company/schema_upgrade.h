#pragma once

#include <string>
#include <vector>

#include "company/ado_connection.h"

namespace tallyra::company {

// Brings the tables of a database up to their description: adds what is missing, changes nothing that is
// there and drops nothing. The caller begins and commits the transaction in which it is done.
class SchemaUpgrade {
 public:
  // Looks at what there is. Throws Refusal when the database is newer than this program.
  explicit SchemaUpgrade(const AdoConnection& connection);

  // 0 for a database without any of the tables, 1 for one from before versions were kept.
  int version_before() const { return version_before_; }

  // Tables with their keys, and columns of tables that are there.
  void add_tables();
  // Indexes, which are built faster when the rows are in, what the planner is told, and the version.
  void add_the_rest();

  // Tables, columns as "TABLE.COLUMN" and indexes, as they were added.
  const std::vector<std::string>& added() const { return added_; }

 private:
  bool has(std::string_view relation) const;
  int version_found() const;
  void add_columns(const schema::Table& table);

  const AdoConnection& connection_;
  schema::Engine engine_;
  std::vector<std::string> relations_;
  int version_before_;
  std::vector<std::string> added_;
};

// The whole upgrade of the database at a place, as a person writes it, in one transaction; a file that is not
// there is created. Returns what a person wants to know of it. Throws Refusal, or automation::Error.
std::string upgrade_schema(const std::string& place);

}  // namespace tallyra::company
