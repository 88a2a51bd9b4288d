#include "tests/com/server_dll.h"

#include <oleauto.h>

#include <stdexcept>

namespace tallyra::tests::com {

std::wstring ServerDll::path(const std::wstring& name) {
  wchar_t program[1024];
  GetModuleFileNameW(nullptr, program, 1024);
  const std::wstring whole = program;
  return whole.substr(0, whole.rfind(L'\\') + 1) + name;
}

ServerDll::ServerDll(const std::wstring& file)
    : module_(LoadLibraryW(file.find(L'\\') == file.npos ? path(file).c_str() : file.c_str())) {
  if (!module_) throw std::runtime_error("the DLL cannot be loaded");
}

ServerDll::~ServerDll() {
  FreeLibrary(module_);
}

HRESULT ServerDll::get_class_object(REFCLSID class_id, REFIID id, void** out) const {
  return entry<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(class_id, id, out);
}

HRESULT ServerDll::can_unload_now() const {
  return entry<HRESULT(WINAPI*)()>("DllCanUnloadNow")();
}

HRESULT ServerDll::register_server() const {
  return entry<HRESULT(WINAPI*)()>("DllRegisterServer")();
}

HRESULT ServerDll::unregister_server() const {
  return entry<HRESULT(WINAPI*)()>("DllUnregisterServer")();
}

HRESULT ServerDll::install(bool install, const wchar_t* command_line) const {
  return entry<HRESULT(WINAPI*)(BOOL, PCWSTR)>("DllInstall")(install, command_line);
}

Pointer<ITypeLib> ServerDll::type_library() const {
  Pointer<ITypeLib> library;
  if (FAILED(LoadTypeLibEx(path().c_str(), REGKIND_NONE, library.out())))
    throw std::runtime_error("Tallyra.dll has no type library");
  return library;
}

}  // namespace tallyra::tests::com
