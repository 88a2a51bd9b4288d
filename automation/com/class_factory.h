#pragma once

#include "automation/com/counted_object.h"
#include "automation/com/served_module.h"

namespace tallyra::automation::com {

// The class object of a served class.
class ClassFactory final : public CountedObject<IClassFactory> {
 public:
  explicit ClassFactory(const ServedClass& served) : served_(served) {}

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** out) override;
  STDMETHODIMP LockServer(BOOL lock) override;

 private:
  ~ClassFactory() = default;

  const ServedClass& served_;
};

}  // namespace tallyra::automation::com
