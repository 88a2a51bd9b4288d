#include "automation/com/com_proxy.h"

#include <algorithm>
#include <new>

#include "automation/com/failure.h"
#include "automation/com/text.h"

namespace tallyra::automation::com {
namespace {

// Every text of the component is made without regard to the user's language; callees hear of none either.
constexpr LCID language_neutral = LOCALE_NEUTRAL;

// What stays where a callee names no argument.
constexpr UINT none_at_fault = static_cast<UINT>(-1);

WORD flags_of(Access access) {
  switch (access) {
    case Access::put: return DISPATCH_PROPERTYPUT;
    case Access::put_reference: return DISPATCH_PROPERTYPUTREF;
    default: return DISPATCH_METHOD | DISPATCH_PROPERTYGET;
  }
}

// Objects of script languages may describe themselves too, but not what their functions take.
ReferenceForm form_for(IDispatch& callee) {
  if (query<IDispatchEx>(&callee)) return ReferenceForm::variant;
  Pointer<ITypeInfo> description;
  const HRESULT code = callee.GetTypeInfo(0, language_neutral, description.out());
  return SUCCEEDED(code) && description ? ReferenceForm::typed : ReferenceForm::variant;
}

}  // namespace

// What came back from one call.
struct ComProxy::Answer {
  HRESULT code = S_OK;
  Variant result = {};
  std::optional<Error> failure = {};
  UINT argument_at_fault = none_at_fault;
};

HRESULT ComProxy::look_up(std::string_view name, DISPID& id) {
  if (!engine_object_) {
    WideName wide(name);
    LPOLESTR names = wide.data();
    const HRESULT code = target_->GetIDsOfNames(IID_NULL, &names, 1, language_neutral, &id);
    if (code != E_NOTIMPL) return code;
    engine_object_ = query<IDispatchEx>(target_.get());
    if (!engine_object_) return code;
  }
  const Variant text(Value(name), Role::caller);
  return engine_object_->GetDispID(V_BSTR(&text.raw()), fdexNameCaseInsensitive, &id);
}

// The list only saves asking again.
void ComProxy::remember(std::string_view name, MemberId id) noexcept {
  try {
    known_names_.emplace_back(name, id);
  } catch (const std::bad_alloc&) {
  }
}

ReferenceForm ComProxy::reference_form(Arguments arguments) {
  const bool matters = std::any_of(arguments.begin(), arguments.end(), [](const Argument& each) {
    return each.is_reference() && !each.get().is_empty();
  });
  if (!matters) return ReferenceForm::variant;
  if (!reference_form_) reference_form_ = form_for(*target_.get());
  return *reference_form_;
}

MemberId ComProxy::resolve(std::string_view name) {
  for (const auto& [known, id] : known_names_)
    if (known == name) return id;
  DISPID id = DISPID_UNKNOWN;
  throw_if_failed(look_up(name, id));
  remember(name, id);
  return id;
}

ComProxy::Answer ComProxy::ask(MemberId id, WORD flags, DISPPARAMS& parameters) {
  Answer answer;
  EXCEPINFO description{};
  VARIANT* const result = (flags & DISPATCH_PROPERTYGET) != 0 ? &answer.result.raw() : nullptr;
  if (engine_object_)
    answer.code =
        engine_object_->InvokeEx(id, language_neutral, flags, &parameters, result, &description, nullptr);
  else
    answer.code = target_->Invoke(id, IID_NULL, language_neutral, flags, &parameters, result, &description,
                                  &answer.argument_at_fault);
  if (answer.code == DISP_E_EXCEPTION)
    answer.failure = error_of(description);
  else if (FAILED(answer.code))
    answer.failure = error_of(answer.code);
  free_texts(description);
  return answer;
}

// A variable of a script's object is neither run nor changed by being read, so asking again is safe; a
// function that has failed is not run again but given as an object, which is no variable's content here.
bool ComProxy::may_be_variable(const Answer& answer, Access access, Arguments arguments) const {
  return answer.code == E_FAIL && access == Access::read && arguments.empty() &&
         query<IDispatchEx>(target_.get());
}

Value ComProxy::invoke(MemberId id, Access access, Arguments arguments) {
  OutgoingArguments outgoing(arguments, access, reference_form(arguments));
  Answer answer = ask(id, flags_of(access), outgoing.parameters());
  if (may_be_variable(answer, access, arguments)) {
    Answer again = ask(id, DISPATCH_PROPERTYGET, outgoing.parameters());
    if (!again.failure && V_VT(&again.result.raw()) != VT_DISPATCH) answer = std::move(again);
  }
  if (answer.failure) {
    if (answer.argument_at_fault < arguments.size())
      answer.failure->blame_argument(static_cast<int>(arguments.size() - answer.argument_at_fault));
    // A variable that the callee has set before it failed is set.
    try {
      outgoing.take_back();
    } catch (...) {
      // What does not fit is of less interest than the failure.
    }
    throw *answer.failure;
  }
  outgoing.take_back();
  return value_of(answer.result.raw(), Role::caller);
}

}  // namespace tallyra::automation::com
