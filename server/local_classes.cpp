#include "server/local_classes.h"

#include <new>
#include <string>

#include "automation/error.h"
#include "automation/local/local_classes.h"
#include "server/class_table.h"

namespace tallyra::server {
namespace {

// A business object as a late-bound client sees it.
class LateBoundObject : public automation::Dispatch {
 public:
  explicit LateBoundObject(const ClassTable& table) : table_(table), object_(table.make()) {}

  automation::MemberId resolve(std::string_view name) override { return table_.resolve(name); }

  automation::Value invoke(automation::MemberId id, automation::Access access,
                           automation::Arguments arguments) override {
    const ClassMember* member = table_.find(id, access);
    if (!member) throw automation::Error(automation::error_number::no_such_member);
    // What the arguments need is asked for outside of the method's own error trap.
    try {
      return member->invoke(*object_, *member, arguments);
    } catch (const std::bad_alloc&) {
      throw automation::Error(automation::error_number::out_of_memory);
    }
  }

 private:
  const ClassTable& table_;
  std::unique_ptr<frame::BusinessObject> object_;
};

}  // namespace

void register_classes() {
  for (const auto& table : classes())
    automation::local::register_class("Tallyra." + std::string(table.name),
                                      [&table] { return automation::make_object<LateBoundObject>(table); });
}

}  // namespace tallyra::server
