#pragma once

// Stock checks and reports.

#include "server/com/business_object.h"
#include "tallyra.h"

namespace tallyra::server::com {

class CheckHeadObject final : public BusinessObject<_CCheckHead> {
 public:
  using BusinessObject::BusinessObject;

  STDMETHODIMP Read(BSTR* cCHECKNO, IDispatch** colFieldName, IDispatch** colFieldValue,
                    float* result) override {
    return call(11, result, cCHECKNO, colFieldName, colFieldValue);
  }
  STDMETHODIMP Update(BSTR cCHECKNO, IDispatch** colFieldName, IDispatch** colFieldValue, BSTR* strOprTag,
                      float* result) override {
    return call(12, result, cCHECKNO, colFieldName, colFieldValue, strOprTag);
  }
  STDMETHODIMP Insert(BSTR cCHECKNO, IDispatch** colFieldName, IDispatch** colFieldValue,
                      float* result) override {
    return call(13, result, cCHECKNO, colFieldName, colFieldValue);
  }
  STDMETHODIMP Delete(BSTR cCHECKNO, float* result) override { return call(14, result, cCHECKNO); }
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
