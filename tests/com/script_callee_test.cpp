#include <activscp.h>
#include <gtest/gtest.h>

#include "automation/collection.h"
#include "automation/com/com_proxy.h"

// Calls of procedures in a script language: they have no type library, and give new contents to variants
// alone.
namespace tallyra::tests::com {
namespace {

using automation::Object;
using automation::ref;
using automation::Value;
using automation::com::ComProxy;
using automation::com::Pointer;

// Runs scripts of one language.
class ScriptHost final : public IActiveScriptSite {
 public:
  ScriptHost(const wchar_t* language, const wchar_t* script) {
    CLSID id;
    if (FAILED(CLSIDFromProgID(language, &id)) ||
        FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IActiveScript, engine_.out_void())))
      throw std::runtime_error("no such script language");
    engine_->SetScriptSite(this);
    const auto parser = automation::com::query<IActiveScriptParse>(engine_.get());
    parser->InitNew();
    engine_->SetScriptState(SCRIPTSTATE_CONNECTED);
    if (FAILED(parser->ParseScriptText(script, nullptr, nullptr, nullptr, 0, 1, 0, nullptr, nullptr)))
      throw std::runtime_error("the script has errors");
  }
  ~ScriptHost() { engine_->Close(); }
  ScriptHost(const ScriptHost&) = delete;
  ScriptHost& operator=(const ScriptHost&) = delete;

  // The script itself, whose procedures are its members.
  Object globals() const {
    Pointer<IDispatch> dispatch;
    if (FAILED(engine_->GetScriptDispatch(nullptr, dispatch.out()))) return {};
    return automation::make_object<ComProxy>(dispatch);
  }

  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    *out = id == IID_IUnknown || id == IID_IActiveScriptSite ? this : nullptr;
    return *out ? S_OK : E_NOINTERFACE;
  }
  // The engine is gone before its host.
  STDMETHODIMP_(ULONG) AddRef() override { return 1; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP GetLCID(LCID*) override { return E_NOTIMPL; }
  STDMETHODIMP GetItemInfo(LPCOLESTR, DWORD, IUnknown**, ITypeInfo**) override {
    return TYPE_E_ELEMENTNOTFOUND;
  }
  STDMETHODIMP GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
  STDMETHODIMP OnStateChange(SCRIPTSTATE) override { return S_OK; }
  STDMETHODIMP OnScriptError(IActiveScriptError*) override { return S_OK; }
  STDMETHODIMP OnEnterScript() override { return S_OK; }
  STDMETHODIMP OnLeaveScript() override { return S_OK; }

 private:
  Pointer<IActiveScript> engine_;
};

TEST(ScriptCallee, AVBScriptProcedureReplacesWhatComesByReference) {
  const ScriptHost host(L"VBScript",
                        L"Public Function GetTableKeyID(kind, column, key)\n"
                        L"  key = kind & column & key\n"
                        L"  GetTableKeyID = 1\n"
                        L"End Function\n"
                        L"Public Sub Exchange(values, quantity)\n"
                        L"  values.Add quantity\n"
                        L"  quantity = quantity / 2\n"
                        L"  Set values = Nothing\n"
                        L"End Sub\n");
  const Object numbers = host.globals();
  Value key("old");
  EXPECT_EQ(numbers.call("GetTableKeyID", "STK027CLOSE", "TRANNO", ref(key)), Value(std::int16_t{1}));
  EXPECT_EQ(key, Value("STK027CLOSETRANNOold"));

  const Object collection = automation::make_object<automation::Collection>();
  Value values(collection);
  Value quantity(7.5);
  numbers.call("Exchange", ref(values), ref(quantity));
  EXPECT_EQ(collection.call("Item", 1), Value(7.5));
  EXPECT_EQ(quantity, Value(3.75));
  EXPECT_EQ(values, Value(Object()));
}

// JScript functions get copies of what comes by reference.
TEST(ScriptCallee, AJScriptFunctionReadsWhatComesByReference) {
  const ScriptHost host(L"JScript",
                        L"function Shown(text, number, values) {\n"
                        L"  values.Add(text);\n"
                        L"  text = '';\n"
                        L"  return values.Item(1) + number + typeof number;\n"
                        L"}\n");
  Value text("T");
  Value number(2.5);
  Value values(automation::make_object<automation::Collection>());
  EXPECT_EQ(host.globals().call("Shown", ref(text), ref(number), ref(values)), Value("T2.5number"));
  EXPECT_EQ(text, Value("T"));
}

}  // namespace
}  // namespace tallyra::tests::com
