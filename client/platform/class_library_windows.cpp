#include <windows.h>

#include "client/platform/class_library.h"
#include "client/platform/wide_text_windows.h"

namespace tallyra::client {
namespace {

// The default value of a key of the registered classes.
std::string registered(const std::string& key) {
  wchar_t text[1024] = {};
  DWORD size = sizeof text;
  const LSTATUS status = RegGetValueW(HKEY_CLASSES_ROOT, wide_text(key).c_str(), nullptr,
                                      RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ, nullptr, text, &size);
  return status == ERROR_SUCCESS ? utf8_text(text) : std::string();
}

}  // namespace

std::string class_library(const std::string& prog_id) {
  const std::string id = registered(prog_id + "\\CLSID");
  return id.empty() ? std::string() : registered("CLSID\\" + id + "\\InprocServer32");
}

}  // namespace tallyra::client
