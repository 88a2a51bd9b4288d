#pragma once

// Month close and costing.

#include "server/com/connection_point.h"
#include "server/com/record_object.h"
#include "tallyra.h"

namespace tallyra::server::com {

using PartCostSetObject = RecordObject<_CPartCostSet, LONG*, LONG, BSTR*>;

// Clients can connect to its events.
class StockCloseObject final : public BusinessObject<_CStockClose> {
 public:
  StockCloseObject(std::string_view name, REFCLSID class_id)
      : BusinessObject(name, class_id), events_(*static_cast<_CStockClose*>(this), DIID___CStockClose) {}

  STDMETHODIMP Read(BSTR pCloseDT, IDispatch** colFieldName, IDispatch** colFieldValue,
                    float* result) override {
    return call(11, result, pCloseDT, colFieldName, colFieldValue);
  }
  STDMETHODIMP Update(BSTR pCloseDT, IDispatch** colFieldName, IDispatch** colFieldValue, BSTR* strOprTag,
                      float* result) override {
    return call(12, result, pCloseDT, colFieldName, colFieldValue, strOprTag);
  }
  STDMETHODIMP Insert(VARIANT pCloseDT, IDispatch** colFieldName, IDispatch** colFieldValue,
                      float* result) override {
    return call(13, result, pCloseDT, colFieldName, colFieldValue);
  }
  STDMETHODIMP Delete(VARIANT pCloseDT, float* result) override { return call(14, result, pCloseDT); }
  STDMETHODIMP STKMonthCloseDept(BSTR* cCloseID, BSTR* cCloseDT, BSTR* cDeptNo, float* result) override {
    return call(15, result, cCloseID, cCloseDT, cDeptNo);
  }
  STDMETHODIMP STKMonthClose(BSTR* cCloseID, BSTR* cCloseDT, float* result) override {
    return call(16, result, cCloseID, cCloseDT);
  }

 private:
  void* find_interface(REFIID id) override {
    if (id == IID_IConnectionPointContainer) return static_cast<IConnectionPointContainer*>(&events_);
    return BusinessObject::find_interface(id);
  }
  GUID event_interface() const override { return DIID___CStockClose; }

  SingleConnectionPoint events_;
};

}  // namespace tallyra::server::com
