#include <olectl.h>
#include <tallyra.h>

#include <cstdio>
#include <iterator>
#include <stdexcept>
#include <string>

#include "automation/com/pointer.h"

// A month close through the interfaces of the type library, with a connection to the close's events:
//
//   tallyra-early-bound CONNECTION-STRING USER DATE
namespace {

using tallyra::automation::com::Pointer;
using tallyra::automation::com::query;

void check(HRESULT code, const char* what) {
  if (SUCCEEDED(code)) return;
  char text[120];
  std::snprintf(text, sizeof text, "%s: 0x%08lX", what, static_cast<unsigned long>(code));
  throw std::runtime_error(text);
}

// A text of automation for as long as it lives; what is plain ASCII is enough here.
class Text {
 public:
  explicit Text(const std::string& text)
      : content_(SysAllocString(std::wstring(text.begin(), text.end()).c_str())) {}
  ~Text() { SysFreeString(content_); }
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  BSTR get() const { return content_; }

 private:
  BSTR content_;
};

// What is connected to the close: counts what it is told.
class ProgressSink : public IDispatch {
 public:
  virtual ~ProgressSink() = default;
  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    *out = id == IID_IUnknown || id == IID_IDispatch || id == DIID___CStockClose ? this : nullptr;
    if (!*out) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  // It lives on the stack and outlives its connection.
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override { return --references_; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    ++events_;
    return S_OK;
  }
  int events() const { return events_; }
  ULONG references() const { return references_; }

 private:
  ULONG references_ = 1;
  int events_ = 0;
};

// A dictionary with the keys 1, 2, ... has the members of a collection: Add, Count, Item.
Pointer<IDispatch> list_of(const Text& item) {
  CLSID class_id;
  Pointer<IDispatch> list;
  check(CLSIDFromProgID(L"Scripting.Dictionary", &class_id), "finding the dictionary class");
  check(CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, list.out_void()),
        "creating a dictionary");
  wchar_t name[] = L"Add";
  LPOLESTR names = name;
  DISPID add = 0;
  check(list->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &add), "finding Add");
  VARIANTARG arguments[2] = {};
  V_VT(&arguments[0]) = VT_BSTR;
  V_BSTR(&arguments[0]) = item.get();
  V_VT(&arguments[1]) = VT_I4;
  V_I4(&arguments[1]) = 1;
  DISPPARAMS parameters{arguments, nullptr, static_cast<UINT>(std::size(arguments)), 0};
  check(list->Invoke(add, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                     nullptr),
        "adding to a dictionary");
  return list;
}

void close_month(const std::string& connection, const std::string& user, const std::string& date) {
  Pointer<_CStockClose> close;
  check(
      CoCreateInstance(CLSID_CStockClose, nullptr, CLSCTX_INPROC_SERVER, IID__CStockClose, close.out_void()),
      "creating the month close");
  check(close->put_ConnectionString(Text(connection).get()), "ConnectionString");
  check(close->put_UserID(Text(user).get()), "UserID");
  check(close->put_Language(Text("EN").get()), "Language");
  check(close->put_SystemDatabase(Text("MSACCESS").get()), "SystemDatabase");

  ProgressSink sink;
  const auto container = query<IConnectionPointContainer>(close.get());
  if (!container) throw std::runtime_error("the month close has no events");
  Pointer<IConnectionPoint> point;
  check(container->FindConnectionPoint(DIID___CStockClose, point.out()), "finding the events");
  DWORD cookie = 0;
  check(point->Advise(&sink, &cookie), "connecting to the events");

  const Text day(date);
  VARIANT close_date{};
  V_VT(&close_date) = VT_BSTR;
  V_BSTR(&close_date) = day.get();
  IDispatch* names = list_of(Text("CLOSEDT")).detach();
  IDispatch* values = list_of(day).detach();
  float result = 0;
  const HRESULT code = close->Insert(close_date, &names, &values, &result);
  if (names) names->Release();
  if (values) values->Release();
  check(code, "Insert");
  float number = 0;
  check(close->get_ErrNumber(&number), "ErrNumber");
  std::printf("closed %s: result %g, error %.0f, %d events\n", date.c_str(), static_cast<double>(result),
              static_cast<double>(number), sink.events());
  if (number != 0) throw std::runtime_error("the month is not closed");

  check(point->Unadvise(cookie), "disconnecting from the events");
  if (sink.references() != 1) throw std::runtime_error("the connection is still held");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("usage: tallyra-early-bound CONNECTION-STRING USER DATE\n", stderr);
    return 2;
  }
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
  int status = 0;
  try {
    close_month(argv[1], argv[2], argv[3]);
    std::puts("script reached its end");
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tallyra-early-bound: %s\n", error.what());
    status = 1;
  }
  CoUninitialize();
  return status;
}
