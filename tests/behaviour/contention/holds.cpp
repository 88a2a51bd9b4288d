#include "tests/behaviour/contention/holds.h"

namespace tallyra::behaviour {
namespace {

using Statements = std::vector<std::string>;

// In milliseconds, for a session on the server.
constexpr const char* impatience = "SET lock_timeout=50";

Statements with_change(Statements statements) {
  statements.emplace_back("INSERT INTO OTHERS VALUES(1)");
  const Statements& change = change_of_others();
  statements.insert(statements.end(), change.begin(), change.end());
  return statements;
}

constexpr const char* all_tables =
    "REVADDR,STKCONTROLLER,STKSHIPNOTE,PARTCOSTSET,STKCHECKHD,STKCHECKDT,STKTRANHD,STKTRANDT,STKCLOSEHD,"
    "TABLEKEYS";

}  // namespace

// On the server the counters are rows and a table as well: whoever needs a number waits too.
std::vector<Hold> holds_on(const CompanyDatabase& company) {
  if (company.is_sqlite()) return {{"the file", with_change({"BEGIN IMMEDIATE"})}};
  return {
      {"the rows", with_change({impatience, "BEGIN", "UPDATE TABLEKEYS SET LASTNO=LASTNO"})},
      {"the tables", with_change({impatience, "BEGIN",
                                  std::string("LOCK TABLE ") + all_tables + " IN ACCESS EXCLUSIVE MODE"})}};
}

std::string impatient(const CompanyDatabase& company) {
  if (!company.is_sqlite()) return company.connection_string();
  return "DRIVER={SQLite3};Database=" + company.file().generic_string() + ";SyncPragma=OFF;Timeout=50";
}

const Statements& change_of_others() {
  static const Statements change{
      "UPDATE REVADDR SET NOTES='changed' WHERE ADDRNO='A1'",
      "UPDATE STKCONTROLLER SET NOTES='changed' WHERE CONTROLLERNO='A1'",
      "UPDATE STKSHIPNOTE SET NOTES='changed' WHERE TRANNO='N1'",
      "UPDATE PARTCOSTSET SET NOTES='changed' WHERE MTYPESN=7",
      "UPDATE STKCHECKHD SET NOTES='changed' WHERE CHECKNO='S1'",
      "UPDATE STKCHECKDT SET NOTES='changed' WHERE CHECKNO='S1' AND PARTNO IN('frame','bolt-1')",
      "UPDATE STKCLOSEHD SET NOTES='changed'",
      "UPDATE STKTRANHD SET NOTES='changed'",
      "UPDATE STKTRANDT SET MONO='changed'",
  };
  return change;
}

}  // namespace tallyra::behaviour
