#pragma once

#include <ocidl.h>

#include <type_traits>

namespace tallyra::automation::com {

// The identifier under which an interface is asked for. An interface that the compiler knows none of
// specialises it.
template <class Interface>
const IID& identifier() {
  return __uuidof(Interface);
}

// The side of an object that tells which interfaces it has, those that are listed; the first one stands for
// IUnknown too. How long the object lives is the deriving class's to say.
template <class First, class... More>
class Identity : public First, public More... {
 public:
  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    if (!out) return E_POINTER;
    *out = find_interface(id);
    if (!*out) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override = 0;
  STDMETHODIMP_(ULONG) Release() override = 0;

 protected:
  ~Identity() = default;

  // The interface, or null; takes no reference. To be extended by an object that has more than its own.
  virtual void* find_interface(REFIID id) {
    void* found = id == IID_IUnknown ? static_cast<First*>(this) : nullptr;
    const auto look_at = [&]<class Interface>(Interface* own) {
      if (!found && answers_to<Interface>(id)) found = own;
    };
    look_at(static_cast<First*>(this));
    (look_at(static_cast<More*>(this)), ...);
    return found;
  }

 private:
  // An interface answers for those that it extends too.
  template <class Interface>
  static bool answers_to(REFIID id) {
    return id == identifier<Interface>() ||
           (std::is_base_of_v<IDispatch, Interface> && id == IID_IDispatch) ||
           (std::is_base_of_v<IProvideClassInfo, Interface> && id == IID_IProvideClassInfo);
  }
};

}  // namespace tallyra::automation::com
