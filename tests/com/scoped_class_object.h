#pragma once

#include <objbase.h>

#include <functional>
#include <string>

#include "automation/com/com_object.h"

namespace tallyra::tests::com {

// Puts a class of the test in the place of the one that is registered under a ProgID, for this process and
// for as long as this lives.
class ScopedClassObject : public IClassFactory {
 public:
  ScopedClassObject(const std::wstring& prog_id, std::function<automation::Object()> make)
      : make_(std::move(make)) {
    CLSID class_id;
    if (SUCCEEDED(CLSIDFromProgID(prog_id.c_str(), &class_id)))
      CoRegisterClassObject(class_id, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_);
  }
  ~ScopedClassObject() {
    if (cookie_ != 0) CoRevokeClassObject(cookie_);
  }
  ScopedClassObject(const ScopedClassObject&) = delete;
  ScopedClassObject& operator=(const ScopedClassObject&) = delete;

  // How often somebody has created an object of the class.
  int created = 0;

  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    *out = id == IID_IUnknown || id == IID_IClassFactory ? this : nullptr;
    return *out ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP CreateInstance(IUnknown*, REFIID id, void** out) override {
    ++created;
    return automation::com::ComObject::make(make_(), automation::com::Role::callee)->QueryInterface(id, out);
  }
  STDMETHODIMP LockServer(BOOL) override { return S_OK; }

 private:
  std::function<automation::Object()> make_;
  DWORD cookie_ = 0;
};

}  // namespace tallyra::tests::com
