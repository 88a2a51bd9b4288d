#include "close/stock_close.h"
#include "masterdata/rev_addr.h"
#include "masterdata/stk_controller.h"
#include "server/class_table.h"
#include "server/signature.h"

namespace tallyra::server {
namespace {

using close::CStockClose;
using masterdata::CRevAddr;
using masterdata::CSTKController;

template <class C>
ClassTable class_table(std::string_view name, std::vector<ClassMember> methods) {
  std::vector<ClassMember> members{
      class_member<&C::put_Language>(MemberKind::property_put, 1, "Language", "value"),
      class_member<&C::put_SystemDatabase>(MemberKind::property_put, 2, "SystemDatabase", "value"),
      class_member<&C::get_ErrNumber>(MemberKind::property_get, 3, "ErrNumber"),
      class_member<&C::get_ErrDescription>(MemberKind::property_get, 4, "ErrDescription"),
      class_member<&C::put_UserID>(MemberKind::property_put, 5, "UserID", "value"),
      class_member<&C::put_ConnectionString>(MemberKind::property_put, 6, "ConnectionString", "value"),
  };
  members.insert(members.end(), std::make_move_iterator(methods.begin()),
                 std::make_move_iterator(methods.end()));
  return {name, std::move(members),
          []() -> std::unique_ptr<frame::Session> { return std::make_unique<C>(); }};
}

// The four methods of a class that follows the record maintenance pattern with one key passed by reference.
template <class C>
ClassTable record_class(std::string_view name, const char* key) {
  return class_table<C>(name, {
                                  method<&C::Read>(11, "Read", key, "colFieldName", "colFieldValue"),
                                  method<&C::Update>(12, "Update", key, "colFieldName", "colFieldValue"),
                                  method<&C::Insert>(13, "Insert", key, "colFieldName", "colFieldValue"),
                                  method<&C::Delete>(14, "Delete", key),
                              });
}

}  // namespace

std::span<const ClassTable> classes() {
  static const std::vector<ClassTable> tables = [] {
    std::vector<ClassTable> list;
    list.push_back(record_class<CRevAddr>("CRevAddr", "cAddrNo"));
    list.push_back(record_class<CSTKController>("CSTKController", "cCONTROLLERNO"));
    list.push_back(class_table<CStockClose>(
        "CStockClose",
        {
            method<&CStockClose::Read>(11, "Read", "pCloseDT", "colFieldName", "colFieldValue"),
            method<&CStockClose::Update>(12, "Update", "pCloseDT", "colFieldName", "colFieldValue",
                                         "strOprTag"),
            method<&CStockClose::Insert>(13, "Insert", "pCloseDT", "colFieldName", "colFieldValue"),
            method<&CStockClose::Delete>(14, "Delete", "pCloseDT"),
            method<&CStockClose::STKMonthCloseDept>(15, "STKMonthCloseDept", "cCloseID", "cCloseDT",
                                                    "cDeptNo"),
            method<&CStockClose::STKMonthClose>(16, "STKMonthClose", "cCloseID", "cCloseDT"),
        }));
    return list;
  }();
  return tables;
}

}  // namespace tallyra::server
