#include "tests/unit/standins/ado/dialect/component_statements.h"

#include <algorithm>
#include <array>
#include <set>
#include <stdexcept>

#include "tests/support/recorded_statements.h"

namespace tallyra::tests::dialect {
namespace {

using stage::RecordedStatement;

// What a builder writes into each table: an assignment and a row.
struct Written {
  std::string_view table;
  std::string_view assignment;
  std::string_view row;
};

constexpr auto written = std::to_array<Written>({
    {"REVADDR", "ADDBY='U',ADDDT=@2024/03/31@",
     "(ADDRNO,ADDBY,ADDDT) Values('A2','U',@2024/03/31 14:05:09@)"},
    {"STKCONTROLLER", "ADDBY='U'", "(CONTROLLERNO,ADDBY) Values('K2','U')"},
    {"STKSHIPNOTE", "NOTES='n'", "(TRANNO,NOTES) Values('T2','n')"},
    {"PARTCOSTSET", "COST=2", "(MTYPESN,COST) Values(1,2.5)"},
    {"STKCLOSEHD", "STATUSSN=1,ADDDT=@2024/03/31 14:05:09@",
     "(CLOSEDT,STATUSSN,ADDBY,ADDDT) Values(@2024/03/31@,0,'U',@2024/03/31 14:05:09@)"},
    {"STKCHECKHD", "DEPTNO='D1',CHECKDT=@2024/03/31@",
     "(CHECKNO,CHECKDT,DEPTNO) Values('S2',@2024/03/31@,'D1')"},
    {"STKCHECKDT", "QTY=3", "(CHECKNO,PARTNO,QTY) Values('S2','P1',3)"},
    {"STKTRANHD", "NOTES='n',EDITDT=@2024/03/31@",
     "(TRANNO,TRANTYPE,TRANDT) Values('T2','STK010POREV',@2024/03/31@)"},
    {"STKTRANDT", "QTY=7,EDITDT=@2024/03/31@", "(TRANNO,SN,QTY,ADDDT) Values('T2',1,7,@2024/03/31@)"},
});

// The statement with an example in the place of "<GetUpdateSQL TABLE>" or "<GetInsertSQL TABLE>".
std::string with_example(const RecordedStatement& statement) {
  if (!statement.text.starts_with('<')) return statement.text;
  const auto end = statement.text.find('>');
  const std::string builder = statement.text.substr(1, statement.text.find(' ') - 1);
  const std::string table = statement.text.substr(builder.size() + 2, end - builder.size() - 2);
  const auto of_table =
      std::find_if(written.begin(), written.end(), [&](const Written& each) { return each.table == table; });
  if (of_table == written.end()) throw std::runtime_error("no example for the table " + table);
  std::string text = builder == "GetUpdateSQL" ? "Update " + table + " Set " : "Insert Into " + table;
  text += builder == "GetUpdateSQL" ? of_table->assignment : of_table->row;
  return in_form(text, statement.kind == "access" ? '#' : '\'') + statement.text.substr(end + 1);
}

}  // namespace

std::vector<std::string> component_statements() {
  std::set<std::string> statements;
  for (const RecordedStatement& each : stage::recorded_statements()) statements.insert(with_example(each));
  return {statements.begin(), statements.end()};
}

std::vector<std::string> component_statements(const std::string& class_name, const std::string& kind) {
  std::vector<std::string> statements;
  for (const RecordedStatement& each : stage::recorded_statements())
    if (each.class_name == class_name && each.kind == kind) statements.push_back(with_example(each));
  return statements;
}

std::string in_form(std::string_view text, char delimiter) {
  std::string formed(text);
  std::replace(formed.begin(), formed.end(), '@', delimiter);
  return formed;
}

}  // namespace tallyra::tests::dialect
