#pragma once

// Stock checks and reports.

#include "server/com/record_object.h"
#include "tallyra.h"

namespace tallyra::server::com {

class CheckHeadObject final : public RecordObject<_CCheckHead, BSTR*, BSTR, BSTR*> {
 public:
  using RecordObject::RecordObject;

  STDMETHODIMP ValidCloseDT(VARIANT vTranDT, VARIANT* result) override { return call(15, result, vTranDT); }
};

class CheckDetailObject final : public BusinessObject<_CCheckDetail> {
 public:
  using BusinessObject::BusinessObject;

  STDMETHODIMP Read(BSTR* cCHECKNO, BSTR* cPartNo, IDispatch** colFieldName, IDispatch** colFieldValue,
                    float* result) override {
    return call(11, result, cCHECKNO, cPartNo, colFieldName, colFieldValue);
  }
  STDMETHODIMP Update(BSTR* cCHECKNO, BSTR* cPartNo, IDispatch** colFieldName, IDispatch** colFieldValue,
                      float* result) override {
    return call(12, result, cCHECKNO, cPartNo, colFieldName, colFieldValue);
  }
  STDMETHODIMP Insert(BSTR* cCHECKNO, BSTR* cPartNo, IDispatch** colFieldName, IDispatch** colFieldValue,
                      float* result) override {
    return call(13, result, cCHECKNO, cPartNo, colFieldName, colFieldValue);
  }
  STDMETHODIMP Delete(BSTR* cCHECKNO, BSTR* cPartNo, float* result) override {
    return call(14, result, cCHECKNO, cPartNo);
  }
};

class StkrptFunsObject final : public BusinessObject<_CStkrptFuns> {
 public:
  using BusinessObject::BusinessObject;

  STDMETHODIMP GetCheckBalance(BSTR cSQL, IDispatch** result) override { return call(15, result, cSQL); }
};

}  // namespace tallyra::server::com
