#include "server/class_table.h"

#include "automation/error.h"
#include "automation/folded_name.h"

namespace tallyra::server {

const ClassMember* ClassTable::find(automation::MemberId id, automation::Access access) const {
  for (const auto& member : members)
    if (member.id == id && (member.kind == MemberKind::property_put) != (access == automation::Access::read))
      return &member;
  return nullptr;
}

automation::MemberId ClassTable::resolve(std::string_view member_name) const {
  for (const auto& member : members)
    if (automation::equals_folded(member.name, member_name)) return member.id;
  throw automation::Error(automation::error_number::no_such_member);
}

}  // namespace tallyra::server
