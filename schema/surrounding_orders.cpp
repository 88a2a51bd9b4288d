#include "schema/subjects.h"

namespace tallyra::schema {
namespace {

constexpr std::string_view of_orders = "The surrounding ERP, read only: orders";

// An order's header, with the columns of its own kind behind number and date.
Table header(std::string_view name, std::string_view number_column, std::string_view date_column,
             const std::vector<Column>& own) {
  std::vector<Column> columns = {required(text(number_column, 20)), date(date_column)};
  columns.insert(columns.end(), own.begin(), own.end());
  for (const Column& column :
       {from_zero(integer("STATUSSN")), text("NOTES", 255), text("ADDBY", 50), date("ADDDT")})
    columns.push_back(column);
  return {.name = name, .subject = of_orders, .note = {}, .columns = columns, .key = {number_column}};
}

Table lines(std::string_view name, std::string_view number_column, const std::vector<Column>& own) {
  std::vector<Column> columns = {required(text(number_column, 20)), required(integer("SN")),
                                 text("PARTNO", 40)};
  columns.insert(columns.end(), own.begin(), own.end());
  return {.name = name, .subject = of_orders, .note = {}, .columns = columns, .key = {number_column, "SN"}};
}

}  // namespace

std::vector<Table> surrounding_orders() {
  return {
      header("POHD", "PONO", "PODT", {partner("SUPPLIERNO")}),
      lines("PODT", "PONO",
            {from_zero(number("POQTY")), from_zero(number("DEDUCTQTY")), number("UPRICE"), date("DUEDT")}),
      header("SOHD", "SONO", "SODT", {text("CUSTNO", 20)}),
      lines("SODTBOM", "SONO", {from_zero(number("SOQTY"))}),
      header("COHD", "CONO", "CODT", {text("PARTNO", 40), from_zero(number("PRODQTY")), partner("DEPTNO")}),
      lines("CODETAIL", "CONO", {from_zero(number("COQTY")), from_zero(number("TEMPLETQTY"))}),
  };
}

}  // namespace tallyra::schema
