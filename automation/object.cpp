#include "automation/object.h"

#include "automation/error.h"

namespace tallyra::automation {

void Argument::set(Value value) const {
  if (target_) *target_ = std::move(value);
}

MemberId Object::resolve(std::string_view name) const {
  const Object called(*this);
  if (!called) throw Error(error_number::object_not_set);
  return called.dispatch_->resolve(name);
}

Value Object::invoke(MemberId member, Access access, Arguments arguments) const {
  const Object called(*this);
  if (!called) throw Error(error_number::object_not_set);
  return called.dispatch_->invoke(member, access, arguments);
}

Value Object::get(std::string_view name) const {
  const Object called(*this);
  return called.invoke(called.resolve(name), Access::read, {});
}

void Object::put(std::string_view name, const Value& value) const {
  const std::array<Argument, 1> list{Argument(value)};
  const Object called(*this);
  called.invoke(called.resolve(name), value.is_object() ? Access::put_reference : Access::put, list);
}

Value BoundMember::get() const {
  return object_.invoke(member_, Access::read, {});
}

}  // namespace tallyra::automation
