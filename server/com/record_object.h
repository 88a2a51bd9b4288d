#pragma once

#include "server/com/business_object.h"

namespace tallyra::server::com {

// A class that keeps records under one key, with the four methods of all such classes. ReadKey and WriteKey
// are the key's type for Read and for the others; Tag is what Update takes besides the collections, or
// nothing.
template <class Interface, class ReadKey, class WriteKey, class... Tag>
class RecordObject : public BusinessObject<Interface> {
 public:
  using BusinessObject<Interface>::BusinessObject;

  STDMETHODIMP Read(ReadKey key, IDispatch** colFieldName, IDispatch** colFieldValue,
                    float* result) override {
    return this->call(11, result, key, colFieldName, colFieldValue);
  }
  STDMETHODIMP Update(WriteKey key, IDispatch** colFieldName, IDispatch** colFieldValue, Tag... tag,
                      float* result) override {
    return this->call(12, result, key, colFieldName, colFieldValue, tag...);
  }
  STDMETHODIMP Insert(WriteKey key, IDispatch** colFieldName, IDispatch** colFieldValue,
                      float* result) override {
    return this->call(13, result, key, colFieldName, colFieldValue);
  }
  STDMETHODIMP Delete(WriteKey key, float* result) override { return this->call(14, result, key); }
};

}  // namespace tallyra::server::com
