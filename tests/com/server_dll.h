#pragma once

#include <oaidl.h>

#include <string>

#include "automation/com/pointer.h"
#include "automation/com/text.h"

namespace tallyra::tests::com {

using automation::com::Pointer;

// A text that the caller was handed and frees.
inline std::string text_and_free(BSTR bstr) {
  std::string text = automation::com::text_of(bstr);
  SysFreeString(bstr);
  return text;
}

// A DLL, loaded for as long as this lives.
class ServerDll {
 public:
  // The name of one that lies beside the test program, or the whole path of another.
  explicit ServerDll(const std::wstring& file = L"Tallyra.dll");
  ~ServerDll();
  ServerDll(const ServerDll&) = delete;
  ServerDll& operator=(const ServerDll&) = delete;

  static std::wstring path(const std::wstring& name = L"Tallyra.dll");

  HRESULT get_class_object(REFCLSID class_id, REFIID id, void** out) const;
  HRESULT can_unload_now() const;
  HRESULT register_server() const;
  HRESULT unregister_server() const;
  HRESULT install(bool install, const wchar_t* command_line) const;

  // A new object of a class, asked for an interface.
  template <class I>
  Pointer<I> create(REFCLSID class_id) const {
    Pointer<IClassFactory> factory;
    Pointer<I> object;
    if (SUCCEEDED(get_class_object(class_id, IID_IClassFactory, factory.out_void())))
      factory->CreateInstance(nullptr, __uuidof(I), object.out_void());
    return object;
  }

  Pointer<ITypeLib> type_library() const;

 private:
  template <class F>
  F entry(const char* name) const {
    return reinterpret_cast<F>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }

  HMODULE module_;
};

}  // namespace tallyra::tests::com
