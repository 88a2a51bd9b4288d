#include "automation/com/incoming_arguments.h"

#include <span>

#include "automation/com/failure.h"
#include "automation/com/variant.h"

namespace tallyra::automation::com {
namespace {

bool is_by_reference(const VARIANTARG& argument) {
  return (V_VT(&argument) & VT_BYREF) != 0;
}

// A put names its value; the name says nothing that the flags have not said, and some callers leave it out.
std::span<const DISPID> named_parameters(const DISPPARAMS& parameters) {
  if (parameters.cNamedArgs == 0) return {};
  if (!parameters.rgdispidNamedArgs || parameters.cNamedArgs > parameters.cArgs) throw error_of(E_INVALIDARG);
  const std::span<const DISPID> names(parameters.rgdispidNamedArgs, parameters.cNamedArgs);
  return names[0] == DISPID_PROPERTYPUT ? std::span<const DISPID>() : names;
}

}  // namespace

IncomingArguments::IncomingArguments(const DISPPARAMS& parameters, std::optional<std::size_t> parameter_count)
    : parameters_(parameters),
      parameter_count_(parameter_count),
      wire_count_(parameters.cArgs),
      wire_(parameters.rgvarg) {}

Arguments IncomingArguments::read() {
  if (wire_count_ > 0 && !wire_) throw error_of(E_INVALIDARG);
  place_sources();
  // References to the values are taken below, so their places must not move.
  values_.reserve(sources_.size());
  before_.resize(sources_.size());
  arguments_.reserve(sources_.size());
  for (std::size_t i = 0; i < sources_.size(); ++i) {
    const VARIANTARG* source = sources_[i];
    try {
      values_.push_back(source ? value_of(*source, Role::callee) : Value(Missing{}));
    } catch (Error& error) {
      error.blame_argument(static_cast<int>(i) + 1);
      throw;
    }
    if (source && is_by_reference(*source)) {
      before_[i] = values_[i];
      arguments_.push_back(Argument::by_reference(values_[i]));
    } else {
      arguments_.push_back(Argument(values_[i]));
    }
  }
  return arguments_;
}

void IncomingArguments::place_sources() {
  if (parameter_count_ && wire_count_ > *parameter_count_) throw error_of(DISP_E_BADPARAMCOUNT);
  const auto names = named_parameters(parameters_);
  if (!names.empty() && !parameter_count_) throw error_of(DISP_E_NONAMEDARGS);
  const std::size_t positional = wire_count_ - names.size();
  sources_.resize(names.empty() ? positional : *parameter_count_);
  for (std::size_t i = 0; i < positional; ++i) sources_[i] = &wire_[wire_count_ - 1 - i];
  for (std::size_t i = 0; i < names.size(); ++i) {
    const auto parameter = static_cast<std::size_t>(names[i]);
    if (names[i] < 0 || parameter >= sources_.size()) {
      unknown_name_ = static_cast<UINT>(i);
      throw error_of(DISP_E_PARAMNOTFOUND);
    }
    if (sources_[parameter]) throw error_of(E_INVALIDARG);
    sources_[parameter] = &wire_[i];
  }
}

void IncomingArguments::write_back() {
  std::optional<Error> first_failure;
  for (std::size_t i = 0; i < sources_.size(); ++i) {
    if (!arguments_[i].is_reference() || before_[i].is_missing() || values_[i] == before_[i]) continue;
    try {
      store(*sources_[i], values_[i]);
    } catch (...) {
      if (first_failure) continue;
      first_failure = current_error();
      first_failure->blame_argument(static_cast<int>(i) + 1);
    }
  }
  if (first_failure) throw *first_failure;
}

std::optional<UINT> IncomingArguments::wire_index(std::size_t parameter) const {
  if (parameter >= sources_.size() || !sources_[parameter]) return std::nullopt;
  return static_cast<UINT>(sources_[parameter] - wire_);
}

}  // namespace tallyra::automation::com
