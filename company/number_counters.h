#pragma once

#include <memory>
#include <string>

#include "company/ado_connection.h"
#include "schema/description.h"

namespace tallyra::company {

// Where the counters of document numbers are, which Corvane keeps: on SQLite in a file of their own beside
// the database, elsewhere in the database. Locks those of the source, so that no number is issued meanwhile.
class NumberCounters {
 public:
  // `source` is an SQLite database; both connections outlive this object. Begins a transaction where the
  // target has a file of its own for them.
  NumberCounters(const AdoConnection& source, const AdoConnection& target,
                 const std::string& target_connection_string);

  // Whether the source has any.
  bool issued() const { return source_ != nullptr; }
  const AdoConnection& source() const { return *source_; }
  const AdoConnection& target() const { return own_target_ ? *own_target_ : target_; }

  // Of the transaction in the target's own file; does nothing where there is none.
  void commit() const;

 private:
  const AdoConnection& target_;
  std::unique_ptr<AdoConnection> source_;
  std::unique_ptr<AdoConnection> own_target_;
};

// Their table in the description.
const schema::Table& number_counters_table();

}  // namespace tallyra::company
