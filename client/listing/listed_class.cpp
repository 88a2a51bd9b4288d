#include "client/listing/listed_class.h"

#include <algorithm>
#include <string>
#include <vector>

#include "automation/folded_name.h"
#include "client/catalogue.h"
#include "client/suggestion.h"
#include "client/usage_error.h"

namespace tallyra::client {
namespace {

constexpr ListedColumn documents[] = {
    {"STKTRANHD.TRANNO", "document"},       {"STKTRANHD.TRANTYPE", "type"},
    {"STKTRANHD.TRANDT", "date"},           {"STKTRANHD.DEPTNOFR", "department"},
    {"STKTRANHD.DEPTNOTO", "to"},           {"STKTRANHD.REFERENCE", "reference"},
    {"STKTRANHD.STATUSSN", "status", true}, {"STKTRANHD.ADDBY", "by"},
};
constexpr ListedColumn document_lines[] = {
    {"STKTRANDT.TRANNO", "document"},     {"STKTRANHD.TRANTYPE", "type"},      {"STKTRANHD.TRANDT", "date"},
    {"STKTRANHD.DEPTNOFR", "department"}, {"STKTRANDT.SN", "line", true},      {"STKTRANDT.PARTNO", "part"},
    {"STKTRANDT.QTY", "quantity", true},  {"STKTRANDT.UPRICE", "price", true},
};
constexpr ListedColumn stocktakings[] = {
    {"STKCHECKHD.CHECKNO", "stocktaking"},   {"STKCHECKHD.CHECKDT", "date"},
    {"STKCHECKHD.DEPTNO", "department"},     {"STKCHECKHD.CHECKBY", "counted by"},
    {"STKCHECKHD.STATUSSN", "status", true}, {"STKCHECKHD.STATUSBY", "by"},
};
constexpr ListedColumn counted_lines[] = {
    {"STKCHECKDT.CHECKNO", "stocktaking"}, {"STKCHECKHD.CHECKDT", "date"},
    {"STKCHECKHD.DEPTNO", "department"},   {"STKCHECKDT.PARTNO", "part"},
    {"STKCHECKDT.QTY", "quantity", true},  {"STKCHECKDT.LOCATION", "location"},
};
constexpr ListedColumn closes[] = {
    {"STKCLOSEHD.CLOSEDT", "date"},    {"STKCLOSEHD.STATUSSN", "status", true}, {"STKCLOSEHD.STATUSBY", "by"},
    {"STKCLOSEHD.ADDBY", "closed by"}, {"STKCLOSEHD.ADDDT", "closed at"},
};
constexpr ListedColumn cost_settings[] = {
    {"PARTCOSTSET.MTYPESN", "type", true},      {"PARTCOSTSET.MTYPENM", "name"},
    {"PARTCOSTSET.COSTMETHOD", "method", true}, {"PARTCOSTSET.OVERHEADRATE", "overhead", true},
    {"PARTCOSTSET.STATUSSN", "status", true},
};
constexpr ListedColumn addresses[] = {
    {"REVADDR.ADDRNO", "address"}, {"REVADDR.ADDRNM", "name"},     {"REVADDR.STREET", "street"},
    {"REVADDR.CITY", "city"},      {"REVADDR.CONTACT", "contact"}, {"REVADDR.TEL", "telephone"},
};
constexpr ListedColumn controllers[] = {
    {"STKCONTROLLER.CONTROLLERNO", "controller"},
    {"STKCONTROLLER.CONTROLLERNM", "name"},
    {"STKCONTROLLER.DEPTNO", "department"},
    {"STKCONTROLLER.TEL", "telephone"},
    {"STKCONTROLLER.EMAIL", "mail"},
};
constexpr ListedColumn notes[] = {
    {"STKSHIPNOTE.TRANNO", "document"}, {"STKSHIPNOTE.NOTEDT", "date"},
    {"STKSHIPNOTE.CARRIER", "carrier"}, {"STKSHIPNOTE.RECEIVEDBY", "received by"},
    {"STKSHIPNOTE.NOTES", "notes"},
};

constexpr ListedClass classes[] = {
    {.name = "CTranHead",
     .from = "STKTRANHD",
     .columns = documents,
     .order = "STKTRANHD.TRANDT Desc,STKTRANHD.TRANNO Desc",
     .date = "STKTRANHD.TRANDT",
     .type = "STKTRANHD.TRANTYPE",
     .status = "STKTRANHD.STATUSSN",
     .department = "STKTRANHD.DEPTNOFR",
     .has_transfers = true},
    {.name = "CTranDetail",
     .from = "STKTRANHD Inner Join STKTRANDT On STKTRANHD.TRANNO=STKTRANDT.TRANNO",
     .columns = document_lines,
     .order = "STKTRANHD.TRANDT Desc,STKTRANDT.TRANNO Desc,STKTRANDT.SN,STKTRANDT.PARTNO",
     .date = "STKTRANHD.TRANDT",
     .type = "STKTRANHD.TRANTYPE",
     .status = "STKTRANHD.STATUSSN",
     .department = "STKTRANHD.DEPTNOFR",
     .has_transfers = true},
    {.name = "CCheckHead",
     .from = "STKCHECKHD",
     .columns = stocktakings,
     .order = "STKCHECKHD.CHECKDT Desc,STKCHECKHD.CHECKNO Desc",
     .date = "STKCHECKHD.CHECKDT",
     .status = "STKCHECKHD.STATUSSN",
     .department = "STKCHECKHD.DEPTNO"},
    {.name = "CCheckDetail",
     .from = "STKCHECKHD Inner Join STKCHECKDT On STKCHECKHD.CHECKNO=STKCHECKDT.CHECKNO",
     .columns = counted_lines,
     .order = "STKCHECKHD.CHECKDT Desc,STKCHECKDT.CHECKNO Desc,STKCHECKDT.PARTNO",
     .date = "STKCHECKHD.CHECKDT",
     .status = "STKCHECKHD.STATUSSN",
     .department = "STKCHECKHD.DEPTNO"},
    {.name = "CStockClose",
     .from = "STKCLOSEHD",
     .columns = closes,
     .order = "STKCLOSEHD.CLOSEDT Desc",
     .date = "STKCLOSEHD.CLOSEDT",
     .status = "STKCLOSEHD.STATUSSN"},
    {.name = "CPartCostSet",
     .from = "PARTCOSTSET",
     .columns = cost_settings,
     .order = "PARTCOSTSET.MTYPESN",
     .type = "PARTCOSTSET.MTYPESN",
     .type_is_number = true,
     .status = "PARTCOSTSET.STATUSSN"},
    {.name = "CRevAddr", .from = "REVADDR", .columns = addresses, .order = "REVADDR.ADDRNO"},
    {.name = "CSTKController",
     .from = "STKCONTROLLER",
     .columns = controllers,
     .order = "STKCONTROLLER.CONTROLLERNO",
     .department = "STKCONTROLLER.DEPTNO"},
    {.name = "CStkShipNote",
     .from = "STKSHIPNOTE",
     .columns = notes,
     .order = "STKSHIPNOTE.NOTEDT Desc,STKSHIPNOTE.TRANNO Desc",
     .date = "STKSHIPNOTE.NOTEDT",
     .type = "STKSHIPNOTE.TRANTYPE"},
};

}  // namespace

std::span<const ListedClass> listed_classes() {
  return classes;
}

const ListedClass& listed_class(std::string_view name) {
  std::string_view own = name;
  if (own.size() > library_prefix.size() &&
      automation::equals_folded(own.substr(0, library_prefix.size()), library_prefix))
    own.remove_prefix(library_prefix.size());
  const auto found = std::ranges::find_if(
      classes, [&](const ListedClass& entry) { return automation::equals_folded(entry.name, own); });
  if (found != std::end(classes)) return *found;
  if (find_class(name)) throw UsageError(std::string(name) + " keeps no records that could be listed");
  std::string text = "there is no class '" + std::string(name) + "' to list; there are";
  std::vector<std::string_view> names;
  for (const ListedClass& entry : classes) {
    names.push_back(entry.name);
    text.append(" ").append(entry.name);
  }
  throw UsageError(text + did_you_mean(own, names));
}

}  // namespace tallyra::client
