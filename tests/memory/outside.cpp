#include "tests/memory/outside.h"

#include <vector>

#include "automation/value.h"
#include "tests/memory/failing_new.h"

namespace tallyra::memory {
namespace {

using automation::Access;
using automation::Argument;
using automation::Arguments;
using automation::MemberId;
using automation::Object;
using automation::Value;

class Outside : public automation::Dispatch {
 public:
  explicit Outside(Object inner) : inner_(std::move(inner)) {}
  ~Outside() override {
    const Pause pause;
    inner_ = {};
  }

  MemberId resolve(std::string_view name) override {
    const Pause pause;
    return inner_.resolve(name);
  }

  Value invoke(MemberId member, Access access, Arguments arguments) override;

  const Object& inner() const { return inner_; }

 private:
  Object inner_;
};

// Its own objects come back to the outside as they were.
Value as_outside_knows(const Value& value) {
  if (const auto* object = value.get_if<Object>())
    if (const auto* own = dynamic_cast<const Outside*>(object->dispatch())) return own->inner();
  return value;
}

Value as_handed_out(Value value) {
  const auto* object = value.get_if<Object>();
  return object && *object ? Value(outside(*object)) : value;
}

Value Outside::invoke(MemberId member, Access access, Arguments arguments) {
  const Pause pause;
  std::vector<Value> given;
  for (const auto& argument : arguments) given.push_back(as_outside_knows(argument.get()));
  std::vector<Value> now = given;
  std::vector<Argument> passed;
  for (std::size_t i = 0; i < arguments.size(); ++i)
    passed.push_back(arguments[i].is_reference() ? Argument::by_reference(now[i]) : Argument(now[i]));
  Value result = inner_.invoke(member, access, passed);
  for (std::size_t i = 0; i < arguments.size(); ++i)
    if (arguments[i].is_reference() && !(now[i] == given[i])) arguments[i].set(as_handed_out(now[i]));
  return as_handed_out(std::move(result));
}

}  // namespace

Object outside(const Object& object) {
  return automation::make_object<Outside>(object);
}

}  // namespace tallyra::memory
