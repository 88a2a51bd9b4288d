#include "schema/engine_words.h"

namespace tallyra::schema {
namespace {

std::string sqlserver_type(const Column& column) {
  switch (column.kind) {
    case Kind::number: return "FLOAT";
    case Kind::integer: return "INT";
    case Kind::date: return "DATETIME";
    case Kind::text: break;
  }
  return "NVARCHAR(" + std::to_string(column.length) + ") COLLATE Latin1_General_BIN2";
}

std::string no_sqlserver_check(const Column&) {
  return {};
}

}  // namespace

const EngineWords sqlserver_words{
    .heading =
        "-- Create script of a company database for SQL Server 2008 and later. README.md tells the "
        "conventions\n"
        "-- and why each index is there.\n"
        "--\n"
        "-- It was not run by this project, which has no such server.\n"
        "--\n"
        "-- Texts are compared by their code points (Latin1_General_BIN2), because the month close compares\n"
        "-- part numbers itself and both orders must be one. Trailing blanks never count in a comparison on\n"
        "-- this engine: 'A' and 'A ' are one key in every column, also in those for which other engines "
        "tell\n"
        "-- them apart. Characters beyond the code page of the database need a collation for it that holds "
        "them,\n"
        "-- as statements quote texts without N. The users' language must read 2024/01/31 as a day of "
        "January\n"
        "-- (us_english does).\n",
    .setting = {},
    .type = sqlserver_type,
    .check = no_sqlserver_check,
    .stored_by_key = {},
    .partial_indexes = true,
    .numbers_in_database = true};

}  // namespace tallyra::schema
