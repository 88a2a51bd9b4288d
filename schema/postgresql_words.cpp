#include "schema/engine_words.h"

namespace tallyra::schema {
namespace {

std::string postgresql_type(const Column& column) {
  switch (column.kind) {
    case Kind::number: return "double precision";
    case Kind::integer: return "integer";
    case Kind::date: return "timestamp(0)";
    case Kind::text: break;
  }
  if (!column.trailing_blanks_count) return "bpchar COLLATE \"C\"";
  return "varchar(" + std::to_string(column.length) + ") COLLATE \"C\"";
}

// A bpchar with a length would be filled up with blanks when it is read.
std::string postgresql_check(const Column& column) {
  const std::string name(column.name);
  if (column.kind == Kind::text && !column.trailing_blanks_count)
    return " CHECK(length(" + name + ")<=" + std::to_string(column.length) + ")";
  if (!column.compared) return {};
  return " CONSTRAINT " + name + "_IS_A_DATE CHECK(" + name +
         " BETWEEN '0100-01-01' AND '9999-12-31 23:59:59')";
}

}  // namespace

const EngineWords postgresql_words{
    .heading =
        "-- Create script of a company database for PostgreSQL 15. README.md tells the conventions and why "
        "each\n"
        "-- index is there. Run it whole or not at all:\n"
        "--   psql -1 -v ON_ERROR_STOP=1 -f postgresql.sql\n"
        "--\n"
        "-- The database has the encoding UTF8. Texts are compared byte by byte (COLLATE \"C\"), whatever "
        "the\n"
        "-- database's own collation. Where trailing blanks do not count the type is bpchar without a "
        "length:\n"
        "-- it keeps the blanks and ignores them in comparisons, keys, joins and groups; elsewhere it is\n"
        "-- varchar, for which they count. Dates are whole seconds; those that statements compare refuse "
        "what\n"
        "-- no client can hold: infinity, years before 100 and after 9999.\n",
    .setting = {},
    .type = postgresql_type,
    .check = postgresql_check,
    .stored_by_key = {},
    .partial_indexes = true,
    .numbers_in_database = true};

}  // namespace tallyra::schema
