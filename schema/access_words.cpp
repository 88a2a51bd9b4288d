#include "schema/engine_words.h"

namespace tallyra::schema {
namespace {

std::string access_type(const Column& column) {
  switch (column.kind) {
    case Kind::number: return "DOUBLE";
    case Kind::integer: return "LONG";
    case Kind::date: return "DATETIME";
    case Kind::text: break;
  }
  return "TEXT(" + std::to_string(column.length) + ")";
}

std::string no_access_check(const Column&) {
  return {};
}

}  // namespace

const EngineWords access_words{
    .heading =
        "-- Create script of a company database for Access (Jet 4). README.md tells the conventions and why "
        "each\n"
        "-- index is there. Jet takes one statement at a time, through ADO, without these comments.\n"
        "--\n"
        "-- It was not run by this project, which has no such engine.\n"
        "--\n"
        "-- The order of texts is that of the database file and cannot be said per column: case does not "
        "count,\n"
        "-- and neither do trailing blanks in keys. Part numbers must be such that this order is that of "
        "their\n"
        "-- bytes, as the month close compares them itself: digits and upper case letters without accents.\n"
        "-- There are no partial indexes, so that no document number comes twice is left to who issues "
        "them.\n",
    .setting = {},
    .type = access_type,
    .check = no_access_check,
    .stored_by_key = {},
    .partial_indexes = false,
    .numbers_in_database = true};

}  // namespace tallyra::schema
