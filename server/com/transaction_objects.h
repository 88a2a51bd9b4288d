#pragma once

// Stock transactions.

#include "server/com/business_object.h"
#include "tallyra.h"

namespace tallyra::server::com {

class TranHeadObject final : public BusinessObject<_CTranHead> {
 public:
  using BusinessObject::BusinessObject;

  STDMETHODIMP Read(BSTR* cTRANNO, BSTR* cTranType, IDispatch** colFieldName, IDispatch** colFieldValue,
                    float* result) override {
    return call(11, result, cTRANNO, cTranType, colFieldName, colFieldValue);
  }
  STDMETHODIMP Update(BSTR cTRANNO, BSTR* cTranType, IDispatch** colFieldName, IDispatch** colFieldValue,
                      BSTR* strOprTag, float* result) override {
    return call(12, result, cTRANNO, cTranType, colFieldName, colFieldValue, strOprTag);
  }
  STDMETHODIMP Insert(BSTR cTRANNO, BSTR* cTranType, IDispatch** colFieldName, IDispatch** colFieldValue,
                      BSTR* pCopyID, float* result) override {
    return call(13, result, cTRANNO, cTranType, colFieldName, colFieldValue, pCopyID);
  }
  STDMETHODIMP Delete(BSTR cTRANNO, BSTR* cTranType, float* result) override {
    return call(14, result, cTRANNO, cTranType);
  }
  STDMETHODIMP ValidCloseDT(VARIANT vTranDT, VARIANT* result) override { return call(15, result, vTranDT); }
};

class TranDetailObject final : public BusinessObject<_CTranDetail> {
 public:
  using BusinessObject::BusinessObject;

  STDMETHODIMP Read(BSTR* cTRANNO, BSTR* cReference, BSTR* cPartNo, IDispatch** colFieldName,
                    IDispatch** colFieldValue, LONG* intSN, float* result) override {
    return call(11, result, cTRANNO, cReference, cPartNo, colFieldName, colFieldValue, intSN);
  }
  STDMETHODIMP Update(BSTR* cTRANNO, BSTR* cTranType, BSTR* cReference, BSTR* cPartNo,
                      IDispatch** colFieldName, IDispatch** colFieldValue, LONG* intSN,
                      float* result) override {
    return call(12, result, cTRANNO, cTranType, cReference, cPartNo, colFieldName, colFieldValue, intSN);
  }
  STDMETHODIMP Insert(BSTR* cTRANNO, BSTR* cTranType, BSTR* cReference, BSTR* cPartNo,
                      IDispatch** colFieldName, IDispatch** colFieldValue, LONG* intSN,
                      float* result) override {
    return call(13, result, cTRANNO, cTranType, cReference, cPartNo, colFieldName, colFieldValue, intSN);
  }
  STDMETHODIMP Delete(BSTR* cTRANNO, BSTR* cTranType, BSTR* cReference, BSTR* cPartNo, LONG* intSN,
                      float* result) override {
    return call(14, result, cTRANNO, cTranType, cReference, cPartNo, intSN);
  }
  STDMETHODIMP InsertRTN(BSTR cTRANNO, SHORT* intSN, IDispatch** colFieldName, IDispatch** colFieldValue,
                         SHORT* iRTNType, float* result) override {
    return call(15, result, cTRANNO, intSN, colFieldName, colFieldValue, iRTNType);
  }
  STDMETHODIMP UpdateRTN(BSTR cTRANNO, SHORT* intSN, IDispatch** colFieldName, IDispatch** colFieldValue,
                         float* result) override {
    return call(16, result, cTRANNO, intSN, colFieldName, colFieldValue);
  }
  STDMETHODIMP PORefQty(BSTR* cReference, LONG* intSN, double* nPOQty, double* nRevQty, double* nRtnQty,
                        BSTR* cType, double* result) override {
    return call(17, result, cReference, intSN, nPOQty, nRevQty, nRtnQty, cType);
  }
  STDMETHODIMP POExam(BSTR cOrderNO, SHORT* result) override { return call(18, result, cOrderNO); }
  STDMETHODIMP OrderTypeExam(BSTR cOrderNO, BSTR* result) override { return call(19, result, cOrderNO); }
  STDMETHODIMP IssuedOrRtnQty(BSTR cTRANNO, BSTR* cMONO, BSTR* cPartNo, BSTR* cTranType, BSTR* cType,
                              double* result) override {
    return call(20, result, cTRANNO, cMONO, cPartNo, cTranType, cType);
  }
  STDMETHODIMP GetMRPQty(BSTR cMONO, BSTR* cPartNo, BSTR* cTranType, double* result) override {
    return call(21, result, cMONO, cPartNo, cTranType);
  }
};

}  // namespace tallyra::server::com
