#include <gtest/gtest.h>

#include "tests/com/client_objects.h"
#include "tests/com/wire_call.h"

// Every member of every interface called through its place in the table of functions, with pointers that
// point nowhere. The type library tells the places and the parameters.
namespace tallyra::tests::com {
namespace {

// One call; each argument as it lies on the stack.
class TableCall {
 public:
  explicit TableCall(const FUNCDESC& function) : function_(function), storage_(function.cParams) {
    for (SHORT i = 0; i < function.cParams; ++i) {
      Variant value;
      const VARTYPE type = type_of(i);
      // Room for any result or replaced argument, none of which is there before the call.
      if (is_pointer(i)) V_I4(&value.raw()) = static_cast<LONG>(reinterpret_cast<LONG_PTR>(&storage_[at(i)]));
      V_VT(&value.raw()) = is_pointer(i) ? VARTYPE{VT_I4} : type == VT_VARIANT ? VARTYPE{VT_EMPTY} : type;
      types_.push_back(is_pointer(i) ? VARTYPE{VT_I4} : type);
      values_.push_back(std::move(value));
    }
  }

  SHORT count() const { return function_.cParams; }
  bool is_pointer(SHORT place) const { return type_of(place) == VT_PTR; }
  void point_nowhere(SHORT place) { V_I4(&values_[at(place)].raw()) = 0; }

  HRESULT on(IDispatch* object) {
    std::vector<VARIANTARG*> arguments;
    for (auto& each : values_) arguments.push_back(&each.raw());
    Variant code;
    EXPECT_EQ(DispCallFunc(object, static_cast<ULONG_PTR>(function_.oVft), CC_STDCALL, VT_ERROR,
                           static_cast<UINT>(count()), types_.data(), arguments.data(), &code.raw()),
              S_OK);
    return V_ERROR(&code.raw());
  }

 private:
  static std::size_t at(SHORT place) { return static_cast<std::size_t>(place); }
  VARTYPE type_of(SHORT place) const { return function_.lprgelemdescParam[place].tdesc.vt; }

  const FUNCDESC& function_;
  std::vector<VARIANT> storage_;
  std::vector<Variant> values_;
  std::vector<VARTYPE> types_;
};

// The description of an object's interface as compiled clients see it.
Pointer<ITypeInfo> table_info(IDispatch* object) {
  Pointer<ITypeInfo> dispatch_info;
  Pointer<ITypeInfo> info;
  HREFTYPE reference = 0;
  EXPECT_EQ(object->GetTypeInfo(0, LOCALE_NEUTRAL, dispatch_info.out()), S_OK);
  EXPECT_EQ(dispatch_info->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
  EXPECT_EQ(dispatch_info->GetRefTypeInfo(reference, info.out()), S_OK);
  return info;
}

class NullPointer : public testing::Test {
 protected:
  void for_each_function(const std::function<void(IDispatch*, const FUNCDESC&)>& body) {
    for (const auto& [name, id] : served_class_ids()) {
      SCOPED_TRACE(name);
      const auto object = new_client(dll_, id, company_);
      const auto info = table_info(object.get());
      FUNCDESC* function = nullptr;
      for (UINT i = 0; SUCCEEDED(info->GetFuncDesc(i, &function)); ++i) {
        SCOPED_TRACE(function->memid);
        body(object.get(), *function);
        info->ReleaseFuncDesc(function);
        ++functions_;
      }
    }
    EXPECT_EQ(functions_, 10 * 6 + 48);
  }

  ServerDll dll_;
  behaviour::CompanyDatabase company_;
  int functions_ = 0;
};

TEST_F(NullPointer, InEveryPlaceAloneIsAnswered) {
  for_each_function([](IDispatch* object, const FUNCDESC& function) {
    for (SHORT place = 0; place < function.cParams; ++place) {
      TableCall call(function);
      if (!call.is_pointer(place)) continue;
      call.point_nowhere(place);
      // A client that was compiled has no other way to leave an argument out.
      const bool optional = (function.lprgelemdescParam[place].paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0;
      EXPECT_EQ(call.on(object), optional ? S_OK : E_POINTER) << place;
    }
  });
}

TEST_F(NullPointer, InAllPlacesIsAnswered) {
  for_each_function([](IDispatch* object, const FUNCDESC& function) {
    TableCall call(function);
    bool any = false;
    for (SHORT place = 0; place < function.cParams; ++place)
      if (call.is_pointer(place)) {
        call.point_nowhere(place);
        any = true;
      }
    // A put takes a text by value, and a null text is an empty one.
    EXPECT_EQ(call.on(object), any ? E_POINTER : S_OK);
  });
}

}  // namespace
}  // namespace tallyra::tests::com
