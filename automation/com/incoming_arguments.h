#pragma once

#include <oaidl.h>

#include <optional>
#include <vector>

#include "automation/object.h"
#include "automation/value.h"

namespace tallyra::automation::com {

// The arguments of one Invoke in the order of the parameters, whatever form each has come in: by value, as a
// reference to a typed variable or as a chain of references to variants, by position or by name. Lives as
// long as the call.
class IncomingArguments {
 public:
  // `parameter_count` bounds the ids of named arguments and the number of all; without it only positions
  // count.
  IncomingArguments(const DISPPARAMS& parameters, std::optional<std::size_t> parameter_count);
  IncomingArguments(const IncomingArguments&) = delete;
  IncomingArguments& operator=(const IncomingArguments&) = delete;

  // Reads the values; to be called once. Throws Error 450 for too many arguments, 448 for a name that no
  // parameter has, 5 for a list that contradicts itself, and for a value that cannot be read, blaming its
  // argument.
  Arguments read();

  // Gives each replaced argument to the variable that the caller has referred to. Left-out arguments stay as
  // they are: a caller may use one variable of that kind for all of them. Goes on after one that does not fit
  // and throws Error for the first such at the end, blaming it.
  void write_back();

  // Where the argument of a parameter (from 0) stands in the caller's list; nothing for one that is absent.
  std::optional<UINT> wire_index(std::size_t parameter) const;
  // Where the argument stands whose name no parameter has; nothing unless read() has found one.
  std::optional<UINT> unknown_name() const { return unknown_name_; }

 private:
  void place_sources();

  const DISPPARAMS& parameters_;
  std::optional<std::size_t> parameter_count_;
  UINT wire_count_;
  VARIANTARG* wire_;
  std::optional<UINT> unknown_name_;
  std::vector<VARIANTARG*> sources_;  // by parameter; none for one left out
  std::vector<Value> values_;
  std::vector<Value> before_;
  std::vector<Argument> arguments_;
};

// Stores a value in the variable that an argument refers to, converted to the variable's type. Does nothing
// for an argument by value and for a variable of a left-out argument.
void store(VARIANTARG& argument, const Value& value);

}  // namespace tallyra::automation::com
