#include "automation/object.h"

#include "automation/error.h"

namespace tallyra::automation {

void Argument::set(Value value) const {
  if (target_) *target_ = std::move(value);
}

MemberId Object::resolve(std::string_view name) const {
  if (!dispatch_) throw Error(error_number::object_not_set);
  return dispatch_->resolve(name);
}

Value Object::invoke(MemberId member, Access access, Arguments arguments) const {
  if (!dispatch_) throw Error(error_number::object_not_set);
  return dispatch_->invoke(member, access, arguments);
}

Value Object::get(std::string_view name) const {
  return invoke(resolve(name), Access::read, {});
}

void Object::put(std::string_view name, const Value& value) const {
  const std::array<Argument, 1> list{Argument(value)};
  invoke(resolve(name), value.is_object() ? Access::put_reference : Access::put, list);
}

Value BoundMember::get() const {
  return object_.invoke(member_, Access::read, {});
}

}  // namespace tallyra::automation
