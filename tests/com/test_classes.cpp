#include "tests/com/test_classes.h"

#include "automation/collection.h"
#include "server/description.h"

namespace tallyra::tests::com {

std::function<void()> TestDetail::during_call;
std::int32_t TestDetail::last_sn = 0;

float TestDetail::Read(std::string& cTRANNO, std::string& cReference, std::string& cPartNo,
                       automation::Object& colFieldName, automation::Object&, std::int32_t& intSN) {
  for (std::string* text : {&cTRANNO, &cReference, &cPartNo}) *text += "!";
  colFieldName = automation::make_object<automation::Collection>();
  colFieldName.call("Add", "fresh");
  last_sn = intSN++;
  return 100;
}

double TestDetail::PORefQty(std::string&, std::int32_t&, double& nPOQty, double& nRevQty, double& nRtnQty,
                            std::string& cType) {
  nPOQty = 1.5;
  nRevQty = 2.5;
  nRtnQty = -3.5;
  return cType.empty() ? 0 : 100;
}

std::int16_t TestDetail::POExam(std::string) {
  if (during_call) during_call();
  return 1;
}

std::string TestDetail::OrderTypeExam(std::string cOrderNO) {
  return cOrderNO;
}

float TestHead::Update(std::string cTRANNO, std::string& cTranType, automation::Object&, automation::Object&,
                       std::string& strOprTag) {
  cTranType = cTRANNO;
  strOprTag = user_id();
  return 100;
}

automation::Value TestHead::ValidCloseDT(automation::Value vTranDT) {
  if (vTranDT.is_text()) throw automation::Error(3709, "the connection is closed");
  return vTranDT;
}

automation::Object TestReports::GetCheckBalance(std::string cSQL) {
  if (cSQL.empty()) return {};
  const auto report = automation::make_object<automation::Collection>();
  report.call("Add", cSQL);
  return report;
}

}  // namespace tallyra::tests::com

namespace tallyra::server {
namespace {

template <class C>
ClassTable test_table(std::string_view name, std::vector<ClassMember> methods) {
  methods.push_back(property_put<&C::put_Language>(1, "Language", "", ""));
  methods.push_back(property_get<&C::get_ErrNumber>(3, "ErrNumber", "", ""));
  methods.push_back(property_get<&C::get_ErrDescription>(4, "ErrDescription", "", ""));
  methods.push_back(property_put<&C::put_UserID>(5, "UserID", "", ""));
  return {name, std::move(methods),
          []() -> std::unique_ptr<frame::BusinessObject> { return std::make_unique<C>(); }};
}

}  // namespace

// Takes the place of the component's own tables in this program. CStockClose has none.
std::span<const ClassTable> classes() {
  using namespace tests::com;
  static const std::vector<ClassTable> tables{
      test_table<TestDetail>(
          "CTranDetail",
          {
              method<&TestDetail::Read>(11, "Read", "",
                                        {{"cTRANNO", ""},
                                         {"cReference", ""},
                                         {"cPartNo", ""},
                                         {"colFieldName", ""},
                                         {"colFieldValue", ""},
                                         {"intSN", "", -1}},
                                        ""),
              method<&TestDetail::PORefQty>(17, "PORefQty", "",
                                            {{"cReference", ""},
                                             {"intSN", ""},
                                             {"nPOQty", ""},
                                             {"nRevQty", ""},
                                             {"nRtnQty", ""},
                                             {"cType", "", ""}},
                                            ""),
              method<&TestDetail::POExam>(18, "POExam", "", {{"cOrderNO", ""}}, ""),
              method<&TestDetail::OrderTypeExam>(19, "OrderTypeExam", "", {{"cOrderNO", ""}}, ""),
          }),
      test_table<TestHead>("CTranHead",
                           {
                               method<&TestHead::Update>(12, "Update", "",
                                                         {{"cTRANNO", ""},
                                                          {"cTranType", ""},
                                                          {"colFieldName", ""},
                                                          {"colFieldValue", ""},
                                                          {"strOprTag", ""}},
                                                         ""),
                               method<&TestHead::ValidCloseDT>(15, "ValidCloseDT", "", {{"vTranDT", ""}}, ""),
                           }),
      test_table<TestReports>("CStkrptFuns", {method<&TestReports::GetCheckBalance>(15, "GetCheckBalance", "",
                                                                                    {{"cSQL", ""}}, "")}),
  };
  return tables;
}

}  // namespace tallyra::server
