#pragma once

#include <oaidl.h>

namespace tallyra::tests::com {

// What a client connects to events: answers to the interface that the test says, counts what is raised.
class CountingSink : public IDispatch {
 public:
  explicit CountingSink(IID answers) : answers_(answers) {}

  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    *out = id == IID_IUnknown || id == answers_ ? this : nullptr;
    if (!*out) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    ++calls;
    return S_OK;
  }

  ULONG references = 1;
  int calls = 0;

 private:
  IID answers_;
};

}  // namespace tallyra::tests::com
