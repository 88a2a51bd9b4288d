#include "close/part_cost_set.h"
#include "close/stock_close.h"
#include "masterdata/rev_addr.h"
#include "masterdata/stk_controller.h"
#include "masterdata/stk_ship_note.h"
#include "server/class_table.h"
#include "server/signature.h"
#include "stockcheck/check_detail.h"
#include "stockcheck/check_head.h"
#include "stockcheck/stkrpt_funs.h"
#include "transactions/tran_detail.h"
#include "transactions/tran_head.h"

namespace tallyra::server {
namespace {

using close::CPartCostSet;
using close::CStockClose;
using masterdata::CRevAddr;
using masterdata::CSTKController;
using masterdata::CStkShipNote;
using stockcheck::CCheckDetail;
using stockcheck::CCheckHead;
using stockcheck::CStkrptFuns;
using transactions::CTranDetail;
using transactions::CTranHead;

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
          []() -> std::unique_ptr<frame::BusinessObject> { return std::make_unique<C>(); }};
}

// The four methods of a class that follows the record maintenance pattern with one key.
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
    list.push_back(class_table<CCheckDetail>(
        "CCheckDetail",
        {
            method<&CCheckDetail::Read>(11, "Read", "cCHECKNO", "cPartNo", "colFieldName", "colFieldValue"),
            method<&CCheckDetail::Update>(12, "Update", "cCHECKNO", "cPartNo", "colFieldName",
                                          "colFieldValue"),
            method<&CCheckDetail::Insert>(13, "Insert", "cCHECKNO", "cPartNo", "colFieldName",
                                          "colFieldValue"),
            method<&CCheckDetail::Delete>(14, "Delete", "cCHECKNO", "cPartNo"),
        }));
    list.push_back(class_table<CCheckHead>(
        "CCheckHead",
        {
            method<&CCheckHead::Read>(11, "Read", "cCHECKNO", "colFieldName", "colFieldValue"),
            method<&CCheckHead::Update>(12, "Update", "cCHECKNO", "colFieldName", "colFieldValue",
                                        "strOprTag"),
            method<&CCheckHead::Insert>(13, "Insert", "cCHECKNO", "colFieldName", "colFieldValue"),
            method<&CCheckHead::Delete>(14, "Delete", "cCHECKNO"),
            method<&CCheckHead::ValidCloseDT>(15, "ValidCloseDT", "vTranDT"),
        }));
    list.push_back(class_table<CPartCostSet>(
        "CPartCostSet",
        {
            method<&CPartCostSet::Read>(11, "Read", "iMTypeSN", "colFieldName", "colFieldValue"),
            method<&CPartCostSet::Update>(12, "Update", "iMTypeSN", "colFieldName", "colFieldValue",
                                          ParameterName("strOprTag", "")),
            method<&CPartCostSet::Insert>(13, "Insert", "iMTypeSN", "colFieldName", "colFieldValue"),
            method<&CPartCostSet::Delete>(14, "Delete", "iMTypeSN"),
        }));
    list.push_back(record_class<CRevAddr>("CRevAddr", "cAddrNo"));
    list.push_back(record_class<CSTKController>("CSTKController", "cCONTROLLERNO"));
    list.push_back(class_table<CStkrptFuns>(
        "CStkrptFuns", {
                           method<&CStkrptFuns::GetCheckBalance>(15, "GetCheckBalance", "cSQL"),
                       }));
    list.push_back(record_class<CStkShipNote>("CStkShipNote", "cTRANNO"));
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
    const ParameterName line_number_or_none("intSN", -1);
    list.push_back(class_table<CTranDetail>(
        "CTranDetail",
        {
            method<&CTranDetail::Read>(11, "Read", "cTRANNO", "cReference", "cPartNo", "colFieldName",
                                       "colFieldValue", line_number_or_none),
            method<&CTranDetail::Update>(12, "Update", "cTRANNO", "cTranType", "cReference", "cPartNo",
                                         "colFieldName", "colFieldValue", line_number_or_none),
            method<&CTranDetail::Insert>(13, "Insert", "cTRANNO", "cTranType", "cReference", "cPartNo",
                                         "colFieldName", "colFieldValue", line_number_or_none),
            method<&CTranDetail::Delete>(14, "Delete", "cTRANNO", "cTranType", "cReference", "cPartNo",
                                         line_number_or_none),
            method<&CTranDetail::InsertRTN>(15, "InsertRTN", "cTRANNO", "intSN", "colFieldName",
                                            "colFieldValue", ParameterName("iRTNType", 0)),
            method<&CTranDetail::UpdateRTN>(16, "UpdateRTN", "cTRANNO", "intSN", "colFieldName",
                                            "colFieldValue"),
            method<&CTranDetail::PORefQty>(17, "PORefQty", "cReference", "intSN", "nPOQty", "nRevQty",
                                           "nRtnQty", ParameterName("cType", "")),
            method<&CTranDetail::POExam>(18, "POExam", "cOrderNO"),
            method<&CTranDetail::OrderTypeExam>(19, "OrderTypeExam", "cOrderNO"),
            method<&CTranDetail::IssuedOrRtnQty>(20, "IssuedOrRtnQty", "cTRANNO", "cMONO", "cPartNo",
                                                 "cTranType", ParameterName("cType", "")),
            method<&CTranDetail::GetMRPQty>(21, "GetMRPQty", "cMONO", "cPartNo",
                                            ParameterName("cTranType", "")),
        }));
    list.push_back(class_table<CTranHead>(
        "CTranHead",
        {
            method<&CTranHead::Read>(11, "Read", "cTRANNO", "cTranType", "colFieldName", "colFieldValue"),
            method<&CTranHead::Update>(12, "Update", "cTRANNO", "cTranType", "colFieldName", "colFieldValue",
                                       "strOprTag"),
            method<&CTranHead::Insert>(13, "Insert", "cTRANNO", "cTranType", "colFieldName", "colFieldValue",
                                       ParameterName("pCopyID", "")),
            method<&CTranHead::Delete>(14, "Delete", "cTRANNO", "cTranType"),
            method<&CTranHead::ValidCloseDT>(15, "ValidCloseDT", "vTranDT"),
        }));
    return list;
  }();
  return tables;
}

}  // namespace tallyra::server
