#pragma once

#include <atomic>

#include "automation/com/module.h"
#include "automation/com/served_module.h"

namespace tallyra::automation::com {

// The class object of a served class.
class ClassFactory final : public IClassFactory {
 public:
  explicit ClassFactory(const ServedClass& served) : served_(served) {}

  STDMETHODIMP QueryInterface(REFIID id, void** out) override;
  STDMETHODIMP_(ULONG) AddRef() override;
  STDMETHODIMP_(ULONG) Release() override;
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** out) override;
  STDMETHODIMP LockServer(BOOL lock) override;

 private:
  ~ClassFactory() = default;

  std::atomic<ULONG> references_ = 1;
  const ServedClass& served_;
  ModuleUse module_use_;
};

}  // namespace tallyra::automation::com
