#pragma once

#include <array>
#include <vector>

#include "automation/com/variant.h"
#include "automation/object.h"

namespace tallyra::automation::com {

// What an argument by reference refers to on the wire. A compiled client passes its typed variables, which a
// callee whose Invoke goes by a type library insists on; a callee without one, such as a class written in a
// script language, gives new contents to variants alone.
enum class ReferenceForm { typed, variant };

// The arguments of a call on their way out, in the order of the wire: the last one first. Used by one call
// and gone with it.
class OutgoingArguments {
 public:
  OutgoingArguments(Arguments arguments, Access access, ReferenceForm form);
  OutgoingArguments(const OutgoingArguments&) = delete;
  OutgoingArguments& operator=(const OutgoingArguments&) = delete;

  DISPPARAMS& parameters() { return parameters_; }
  // Hands what the callee has put in place of arguments by reference to those who gave them.
  void take_back();

 private:
  // Enough for every member that the component calls; longer lists live in the vectors.
  static constexpr std::size_t usual_count = 8;

  Arguments arguments_;
  std::array<Variant, usual_count> few_contents_;
  std::array<VARIANTARG, usual_count> few_passed_;
  std::vector<Variant> many_contents_;
  std::vector<VARIANTARG> many_passed_;
  Variant* contents_ = few_contents_.data();
  VARIANTARG* passed_ = few_passed_.data();
  DISPID value_put_ = DISPID_PROPERTYPUT;
  DISPPARAMS parameters_{};
};

}  // namespace tallyra::automation::com
