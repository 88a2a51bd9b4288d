#include "client/catalogue.h"

#include "automation/folded_name.h"

namespace tallyra::client {
namespace {

// Made by scripts/generate.sh from the description of the classes in server/classes.
// tallyra-describe: catalogue
constexpr MemberEntry tran_head[] = {
    {"Read", "cTRANNO cTranType @"},
    {"Insert", "cTRANNO cTranType COLUMN=value... [pCopyID]"},
    {"Update", "cTRANNO cTranType COLUMN=value... strOprTag"},
    {"Delete", "cTRANNO cTranType"},
    {"ValidCloseDT", "vTranDT"},
};
constexpr MemberEntry tran_detail[] = {
    {"Read", "cTRANNO cReference cPartNo @ [intSN]"},
    {"Insert", "cTRANNO cTranType cReference cPartNo COLUMN=value... [intSN]"},
    {"Update", "cTRANNO cTranType cReference cPartNo COLUMN=value... [intSN]"},
    {"Delete", "cTRANNO cTranType cReference cPartNo [intSN]"},
    {"InsertRTN", "cTRANNO intSN COLUMN=value... [iRTNType]"},
    {"UpdateRTN", "cTRANNO intSN COLUMN=value..."},
    {"PORefQty", "cReference intSN nPOQty nRevQty nRtnQty [cType]"},
    {"POExam", "cOrderNO"},
    {"OrderTypeExam", "cOrderNO"},
    {"IssuedOrRtnQty", "cTRANNO cMONO cPartNo cTranType [cType]"},
    {"GetMRPQty", "cMONO cPartNo [cTranType]"},
};
constexpr MemberEntry check_head[] = {
    {"Read", "cCHECKNO @"},
    {"Insert", "cCHECKNO COLUMN=value..."},
    {"Update", "cCHECKNO COLUMN=value... strOprTag"},
    {"Delete", "cCHECKNO"},
    {"ValidCloseDT", "vTranDT"},
};
constexpr MemberEntry check_detail[] = {
    {"Read", "cCHECKNO cPartNo @"},
    {"Insert", "cCHECKNO cPartNo COLUMN=value..."},
    {"Update", "cCHECKNO cPartNo COLUMN=value..."},
    {"Delete", "cCHECKNO cPartNo"},
};
constexpr MemberEntry stkrpt_funs[] = {
    {"GetCheckBalance", "cSQL"},
};
constexpr MemberEntry part_cost_set[] = {
    {"Read", "iMTypeSN @"},
    {"Insert", "iMTypeSN COLUMN=value..."},
    {"Update", "iMTypeSN COLUMN=value... [strOprTag]"},
    {"Delete", "iMTypeSN"},
};
constexpr MemberEntry stock_close[] = {
    {"Read", "pCloseDT @"},
    {"Insert", "pCloseDT COLUMN=value..."},
    {"Update", "pCloseDT COLUMN=value... strOprTag"},
    {"Delete", "pCloseDT"},
    {"STKMonthCloseDept", "cCloseID cCloseDT cDeptNo"},
    {"STKMonthClose", "cCloseID cCloseDT"},
};
constexpr MemberEntry rev_addr[] = {
    {"Read", "cAddrNo @"},
    {"Insert", "cAddrNo COLUMN=value..."},
    {"Update", "cAddrNo COLUMN=value..."},
    {"Delete", "cAddrNo"},
};
constexpr MemberEntry stk_controller[] = {
    {"Read", "cCONTROLLERNO @"},
    {"Insert", "cCONTROLLERNO COLUMN=value..."},
    {"Update", "cCONTROLLERNO COLUMN=value..."},
    {"Delete", "cCONTROLLERNO"},
};
constexpr MemberEntry stk_ship_note[] = {
    {"Read", "cTRANNO @"},
    {"Insert", "cTRANNO COLUMN=value..."},
    {"Update", "cTRANNO COLUMN=value..."},
    {"Delete", "cTRANNO"},
};

constexpr ClassEntry classes[] = {
    {"CTranHead", "stock documents", tran_head},
    {"CTranDetail", "lines of stock documents", tran_detail},
    {"CCheckHead", "stocktakings and their posting", check_head},
    {"CCheckDetail", "lines of stocktakings", check_detail},
    {"CStkrptFuns", "check balance report", stkrpt_funs},
    {"CPartCostSet", "how parts of a material type are costed", part_cost_set},
    {"CStockClose", "month-end close", stock_close},
    {"CRevAddr", "receiving addresses", rev_addr},
    {"CSTKController", "stock controllers", stk_controller},
    {"CStkShipNote", "shipping notes", stk_ship_note},
};
// tallyra-describe: end

template <class Entries>
std::string joined_names(const Entries& entries) {
  std::string names;
  for (const auto& entry : entries) {
    if (!names.empty()) names += ", ";
    names += entry.name;
  }
  return names;
}

}  // namespace

std::span<const ClassEntry> catalogue() {
  return classes;
}

const ClassEntry* find_class(std::string_view name) {
  if (name.size() > library_prefix.size() &&
      automation::equals_folded(name.substr(0, library_prefix.size()), library_prefix))
    name.remove_prefix(library_prefix.size());
  for (const auto& entry : classes)
    if (automation::equals_folded(entry.name, name)) return &entry;
  return nullptr;
}

const MemberEntry* find_member(const ClassEntry& entry, std::string_view name) {
  for (const auto& member : entry.members)
    if (automation::equals_folded(member.name, name)) return &member;
  return nullptr;
}

bool is_method(std::string_view prog_id, std::string_view member) {
  const ClassEntry* entry = find_class(prog_id);
  return entry && find_member(*entry, member);
}

std::string class_names() {
  return joined_names(classes);
}

std::string members_hint(std::string_view prog_id) {
  const ClassEntry* entry = find_class(prog_id);
  return entry ? "; its members are " + joined_names(entry->members) : std::string();
}

std::string usage_hint(std::string_view prog_id, std::string_view member) {
  const ClassEntry* entry = find_class(prog_id);
  const MemberEntry* known = entry ? find_member(*entry, member) : nullptr;
  if (!known) return {};
  return "; write: " + std::string(known->name) + " " + std::string(known->arguments);
}

std::string catalogue_text() {
  std::string text;
  for (const auto& entry : classes) {
    text.append(library_prefix).append(entry.name).append(": ").append(entry.purpose).append("\n");
    for (const auto& member : entry.members)
      text.append("  ").append(member.name).append(" ").append(member.arguments).append("\n");
  }
  return text;
}

}  // namespace tallyra::client
