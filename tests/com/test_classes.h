#pragma once

#include <functional>
#include <string>

#include "automation/object.h"
#include "frame/business_object.h"

// Classes in the place of the component's own: their members have the same signatures and show what reached
// them.
namespace tallyra::tests::com {

// Stands in for CTranDetail.
class TestDetail : public frame::BusinessObject {
 public:
  TestDetail() : BusinessObject("MSACCESS") {}

  // Appends "!" to every text, puts a fresh collection in the place of the first one and counts intSN up.
  float Read(std::string& cTRANNO, std::string& cReference, std::string& cPartNo,
             automation::Object& colFieldName, automation::Object& colFieldValue, std::int32_t& intSN);
  double PORefQty(std::string& cReference, std::int32_t& intSN, double& nPOQty, double& nRevQty,
                  double& nRtnQty, std::string& cType);
  // Runs `during_call`.
  std::int16_t POExam(std::string cOrderNO);
  // The text as it arrived.
  std::string OrderTypeExam(std::string cOrderNO);

  static std::function<void()> during_call;
  static std::int32_t last_sn;
};

// Stands in for CTranHead.
class TestHead : public frame::BusinessObject {
 public:
  TestHead() : BusinessObject("MSACCESS") {}

  float Update(std::string cTRANNO, std::string& cTranType, automation::Object& colFieldName,
               automation::Object& colFieldValue, std::string& strOprTag);
  // Gives the argument back, or fails with 3709 when it is a text.
  automation::Value ValidCloseDT(automation::Value vTranDT);
};

// Stands in for CStkrptFuns.
class TestReports : public frame::BusinessObject {
 public:
  TestReports() : BusinessObject("MSACCESS") {}

  automation::Object GetCheckBalance(std::string cSQL);
};

}  // namespace tallyra::tests::com
