#include "schema/engine_words.h"

namespace tallyra::schema {
namespace {

std::string sqlite_type(const Column& column) {
  switch (column.kind) {
    case Kind::number: return "DOUBLE";
    case Kind::integer: return "INTEGER";
    case Kind::date: return "TIMESTAMP";
    case Kind::text: break;
  }
  const std::string text = "VARCHAR(" + std::to_string(column.length) + ")";
  return column.trailing_blanks_count ? text : text + " COLLATE RTRIM";
}

std::string sqlite_check(const Column& column) {
  if (!column.compared) return {};
  const std::string name(column.name);
  return " CONSTRAINT " + name + "_IS_A_DATE CHECK(" + name + " IS strftime('%Y-%m-%d %H:%M:%S', " + name +
         ", '+0 days'))";
}

}  // namespace

const EngineWords sqlite_words{
    .heading =
        "-- Create script of a company database for SQLite. README.md tells the conventions and why each\n"
        "-- index is there.\n"
        "--\n"
        "-- Dates are checked by being calculated with: a day that no month has would come back as another\n"
        "-- one. Texts are compared byte by byte; where trailing blanks do not count, COLLATE RTRIM says "
        "so.\n"
        "-- Lengths are not enforced.\n",
    .setting = "PRAGMA journal_mode=WAL",
    .type = sqlite_type,
    .check = sqlite_check,
    .stored_by_key = " WITHOUT ROWID",
    .partial_indexes = true,
    .numbers_in_database = false};

}  // namespace tallyra::schema
