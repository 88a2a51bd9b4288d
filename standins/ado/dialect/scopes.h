#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "standins/ado/dialect/date_column_cache.h"

namespace tallyra::standins::ado::dialect {

// The tables that the FROM clauses of one statement make visible. A scope is one SELECT (or the whole UPDATE
// or DELETE); a column that none of its tables has is looked for in the enclosing scopes.
class Scopes {
 public:
  using Id = std::uint32_t;
  static constexpr Id none = 0xFFFFFFFF;

  struct Table {
    std::string_view name;     // without delimiters and database prefix
    std::string_view exposed;  // alias, or the name when there is none; empty for a subquery without alias
    std::string_view
        written;  // as in the text, delimiters and prefix included; empty for a table inside a subquery
    Id next = none;
  };

  void clear();
  Id open(Id parent);

  // Tables beyond the number that SQLite can join are not kept.
  void add(Id scope, Table table);

  // Makes the tables of a subquery in a FROM clause visible under the subquery's alias.
  void adopt(Id scope, Id subquery, std::string_view alias);

  // The one table that `scope` itself exposes under this name; null when there is none, when there are
  // several, and when it is a subquery.
  const Table* target(Id scope, std::string_view exposed) const;

  // Whether `scope` holds exactly one table.
  bool single(Id scope) const { return scopes_[scope].count == 1; }

  // `qualifier` is empty for an unqualified column, which is a date when any visible table says so.
  bool is_date(Id scope, std::string_view qualifier, std::string_view column, DateColumnCache& columns) const;

 private:
  struct Scope {
    Id parent;
    Id first = none;
    Id last = none;
    std::uint32_t count = 0;
  };

  std::vector<Scope> scopes_;
  std::vector<Table> tables_;
};

}  // namespace tallyra::standins::ado::dialect
