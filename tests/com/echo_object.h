#pragma once

#include <string>
#include <vector>

#include "automation/com/com_object.h"
#include "automation/member_table.h"

namespace tallyra::tests::com {

// Remembers what it was called with and puts `replacement` in place of every argument by reference.
class EchoObject : public automation::Implements<EchoObject> {
 public:
  static const automation::MemberTable<EchoObject>& members() {
    static const automation::MemberTable<EchoObject> table{
        {1, "Replace", automation::method<&EchoObject::replace>},
        {2, "Keep", automation::method<&EchoObject::keep>},
        {3, "Fail", automation::method<&EchoObject::fail>},
        {4, "Text", automation::read_write<&EchoObject::text, &EchoObject::set_text>},
    };
    return table;
  }

  automation::Value replace(automation::Arguments arguments) {
    remember(arguments);
    for (const auto& argument : arguments) argument.set(replacement);
    return arguments.empty() ? automation::Value() : received[0];
  }
  automation::Value keep(automation::Arguments arguments) {
    remember(arguments);
    return arguments.empty() ? automation::Value() : received[0];
  }
  automation::Value fail(automation::Arguments arguments) {
    remember(arguments);
    for (const auto& argument : arguments) argument.set(replacement);
    throw automation::Error(3704, "closed");
  }
  automation::Value text() { return text_; }
  void set_text(const automation::Value& value) { text_ = value; }

  automation::Value replacement;
  std::vector<automation::Value> received;

 private:
  void remember(automation::Arguments arguments) {
    received.clear();
    for (const auto& argument : arguments) received.push_back(argument.get());
  }

  automation::Value text_;
};

}  // namespace tallyra::tests::com
