#include "bench/material_requirement.h"

#include <stdexcept>
#include <vector>

#include "automation/convert.h"
#include "bench/session.h"

namespace tallyra::bench {
namespace {

using automation::Object;
using automation::ref;
using automation::Value;

// Part n takes parts 6n+1 to 6n+6: 1 + 6 + 36 + 216 + 1296 assemblies, and below them the leaves. The screw
// goes into as many assemblies of the lowest level as make the bill 10,000 lines long.
constexpr int fan = 6;
constexpr int assemblies = 1555;
constexpr int lowest_level = 259;
constexpr int lines = 10'000;
constexpr int screws = lines - assemblies * fan;
constexpr double ordered = 3;
// Two pieces per line, four levels down, then one screw.
constexpr double required = ordered * 16 * screws;

std::string part(int number) {
  return "BENCH" + std::to_string(number);
}

std::string bill_line(const std::string& assembly, int sn, const std::string& component, int pieces) {
  return "Insert Into ASSMBOM(ASSMNO,SN,PARTNO,ENGQTY,URATE,WSRATE) Values('" + assembly + "'," +
         std::to_string(sn) + ",'" + component + "'," + std::to_string(pieces) + ",1,0)";
}

std::vector<std::string> order_with_bill() {
  std::vector<std::string> statements{"Insert Into SODTBOM(SONO,SN,PARTNO,SOQTY) Values('BENCH',1,'" +
                                      part(0) + "'," + std::to_string(ordered) + ")"};
  for (int assembly = 0; assembly < assemblies; ++assembly)
    for (int sn = 1; sn <= fan; ++sn)
      statements.push_back(bill_line(part(assembly), sn, part(assembly * fan + sn), 2));
  for (int i = 0; i < screws; ++i)
    statements.push_back(bill_line(part(lowest_level + i), fan + 1, "SCREW", 1));
  return statements;
}

}  // namespace

Scenario material_requirement(Companies& companies, const CompanySize& size) {
  Scenario scenario;
  scenario.work = "requirement of a part";
  scenario.size = "bill of 5 levels, " + with_commas(lines) + " lines";
  scenario.rounds = 21;
  scenario.company = [&companies, size] { return companies.changed(size, "bill", order_with_bill()); };
  scenario.run = [](const std::string& connection_string) -> std::uint64_t {
    const Object detail = session(connection_string, "CTranDetail");
    Value screw = "SCREW";
    Value type = "STK020MISSSO";
    const Value quantity = detail.call("GetMRPQty", "BENCH", ref(screw), ref(type));
    if (!automation::equals_number(quantity, required))
      throw std::runtime_error("the bill requires " + automation::to_text(quantity) +
                               " screws: " + automation::to_text(detail.get("ErrDescription")));
    return lines;
  };
  return scenario;
}

}  // namespace tallyra::bench
