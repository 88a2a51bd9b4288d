#include <gtest/gtest.h>

#include <deque>

#include "automation/com/served_module.h"
#include "automation/com/variant.h"
#include "tests/com/recording_classes.h"

// Every slot of every interface leads to the member that the type library declares there, with the arguments
// in their order, and brings back what the member gives.
namespace tallyra::tests::com {
namespace {

using automation::Value;
using automation::com::Pointer;
using automation::com::Role;
using automation::com::Variant;

// A function of an interface as the type library describes it.
class Function {
 public:
  Function(ITypeInfo& info, UINT index) : info_(info) {
    if (FAILED(info.GetFuncDesc(index, &function_))) function_ = nullptr;
  }
  ~Function() {
    if (function_) info_.ReleaseFuncDesc(function_);
  }
  Function(const Function&) = delete;
  Function& operator=(const Function&) = delete;

  explicit operator bool() const { return function_ != nullptr; }
  const FUNCDESC* operator->() const { return function_; }
  std::vector<ELEMDESC> parameters() const {
    return {function_->lprgelemdescParam, function_->lprgelemdescParam + function_->cParams};
  }

 private:
  ITypeInfo& info_;
  FUNCDESC* function_ = nullptr;
};

// The arguments of one call of a slot: a variable for each parameter.
class SlotCall {
 public:
  explicit SlotCall(const std::vector<ELEMDESC>& parameters) {
    for (const ELEMDESC& parameter : parameters) add(parameter);
  }

  HRESULT on(IUnknown* object, const FUNCDESC& function) {
    std::vector<VARIANTARG*> pointers;
    for (auto& each : passed_) pointers.push_back(&each);
    Variant code;
    const HRESULT called =
        DispCallFunc(object, static_cast<ULONG_PTR>(function.oVft), CC_STDCALL, VT_ERROR,
                     static_cast<UINT>(types_.size()), types_.data(), pointers.data(), &code.raw());
    return FAILED(called) ? called : V_ERROR(&code.raw());
  }

  // What a variable holds now.
  std::string content(std::size_t place) const {
    return described(automation::com::value_of(variables_[place].raw(), Role::caller));
  }

 private:
  void add(const ELEMDESC& parameter) {
    const auto place = static_cast<int>(variables_.size());
    const VARTYPE type = variable_type(parameter);
    Variant& variable = variables_.emplace_back();
    if (!is_result(parameter))
      variable = Variant(sample(type, place), Role::caller);
    else if (type != VT_VARIANT)
      V_VT(&variable.raw()) = type;
    VARIANTARG passed = variable.raw();
    types_.push_back(type);
    if (parameter.tdesc.vt == VT_PTR) {
      types_.back() = static_cast<VARTYPE>(VT_BYREF | type);
      V_VT(&passed) = types_.back();
      V_BYREF(&passed) = type == VT_VARIANT ? static_cast<void*>(&variable.raw()) : &V_NONE(&variable.raw());
    }
    passed_.push_back(passed);
  }

  std::deque<Variant> variables_;
  std::vector<VARTYPE> types_;
  std::deque<VARIANTARG> passed_;
};

Pointer<IUnknown> new_object(const DescribedInterface& described) {
  for (const auto& served : automation::com::served_module().classes) {
    if (served.class_id != described.class_id) continue;
    Pointer<IUnknown> object;
    EXPECT_EQ(served.make()->QueryInterface(described.id, object.out_void()), S_OK);
    return object;
  }
  return {};
}

void expect_slot_leads_to_its_member(IUnknown* object, const Function& function) {
  const auto parameters = function.parameters();
  SlotCall call(parameters);
  recorded_calls.clear();
  ASSERT_EQ(call.on(object, *function.operator->()), S_OK);
  ASSERT_EQ(recorded_calls.size(), 1U);
  EXPECT_EQ(recorded_calls[0].id, function->memid);

  std::vector<std::string> expected;
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    const VARTYPE type = variable_type(parameters[i]);
    const int place = static_cast<int>(i);
    if (is_result(parameters[i])) {
      EXPECT_EQ(call.content(i), described(sample(type, result_place)));
      continue;
    }
    expected.push_back(described(sample(type, place)));
    const bool by_reference = parameters[i].tdesc.vt == VT_PTR;
    EXPECT_EQ(call.content(i), described(sample(type, by_reference ? first_new_place + place : place)))
        << "parameter " << i;
  }
  EXPECT_EQ(recorded_calls[0].arguments, expected);
}

TEST(InterfaceSlot, LeadsToItsMemberWithTheArgumentsInOrder) {
  int slots = 0;
  for (const auto& described : described_interfaces()) {
    SCOPED_TRACE(described.class_name);
    const auto object = new_object(described);
    ASSERT_TRUE(object);
    for (UINT index = 0;; ++index, ++slots) {
      const Function function(*described.vtable.get(), index);
      if (!function) break;
      SCOPED_TRACE("member " + std::to_string(function->memid) + " at " + std::to_string(function->oVft));
      expect_slot_leads_to_its_member(object.get(), function);
    }
  }
  EXPECT_EQ(described_interfaces().size(), 10U);
  EXPECT_GT(slots, 10 * 6) << "the properties of the session alone are that many";
}

}  // namespace
}  // namespace tallyra::tests::com
