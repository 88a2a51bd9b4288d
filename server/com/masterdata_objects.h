#pragma once

// Master data and shipping notes.

#include "server/com/business_object.h"
#include "tallyra.h"

namespace tallyra::server::com {

class RevAddrObject final : public BusinessObject<_CRevAddr> {
 public:
  using BusinessObject::BusinessObject;

  STDMETHODIMP Read(BSTR* cAddrNo, IDispatch** colFieldName, IDispatch** colFieldValue,
                    float* result) override {
    return call(11, result, cAddrNo, colFieldName, colFieldValue);
  }
  STDMETHODIMP Update(BSTR* cAddrNo, IDispatch** colFieldName, IDispatch** colFieldValue,
                      float* result) override {
    return call(12, result, cAddrNo, colFieldName, colFieldValue);
  }
  STDMETHODIMP Insert(BSTR* cAddrNo, IDispatch** colFieldName, IDispatch** colFieldValue,
                      float* result) override {
    return call(13, result, cAddrNo, colFieldName, colFieldValue);
  }
  STDMETHODIMP Delete(BSTR* cAddrNo, float* result) override { return call(14, result, cAddrNo); }
};

class STKControllerObject final : public BusinessObject<_CSTKController> {
 public:
  using BusinessObject::BusinessObject;

  STDMETHODIMP Read(BSTR* cCONTROLLERNO, IDispatch** colFieldName, IDispatch** colFieldValue,
                    float* result) override {
    return call(11, result, cCONTROLLERNO, colFieldName, colFieldValue);
  }
  STDMETHODIMP Update(BSTR* cCONTROLLERNO, IDispatch** colFieldName, IDispatch** colFieldValue,
                      float* result) override {
    return call(12, result, cCONTROLLERNO, colFieldName, colFieldValue);
  }
  STDMETHODIMP Insert(BSTR* cCONTROLLERNO, IDispatch** colFieldName, IDispatch** colFieldValue,
                      float* result) override {
    return call(13, result, cCONTROLLERNO, colFieldName, colFieldValue);
  }
  STDMETHODIMP Delete(BSTR* cCONTROLLERNO, float* result) override { return call(14, result, cCONTROLLERNO); }
};

class StkShipNoteObject final : public BusinessObject<_CStkShipNote> {
 public:
  using BusinessObject::BusinessObject;

  STDMETHODIMP Read(BSTR* cTRANNO, IDispatch** colFieldName, IDispatch** colFieldValue,
                    float* result) override {
    return call(11, result, cTRANNO, colFieldName, colFieldValue);
  }
  STDMETHODIMP Update(BSTR cTRANNO, IDispatch** colFieldName, IDispatch** colFieldValue,
                      float* result) override {
    return call(12, result, cTRANNO, colFieldName, colFieldValue);
  }
  STDMETHODIMP Insert(BSTR cTRANNO, IDispatch** colFieldName, IDispatch** colFieldValue,
                      float* result) override {
    return call(13, result, cTRANNO, colFieldName, colFieldValue);
  }
  STDMETHODIMP Delete(BSTR cTRANNO, float* result) override { return call(14, result, cTRANNO); }
};

}  // namespace tallyra::server::com
