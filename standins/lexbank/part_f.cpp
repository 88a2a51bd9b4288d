#include "standins/lexbank/part_f.h"

#include "automation/convert.h"
#include "standins/lexbank/language.h"

namespace tallyra::standins::lexbank {

const automation::MemberTable<PartF>& PartF::members() {
  static const automation::MemberTable<PartF> table{
      {1, "Language", automation::write_only<&PartF::set_language>},
      {2, "StatusApproved", automation::property<&PartF::status_approved>},
      {3, "NameCheck", automation::property<&PartF::name_check>},
  };
  return table;
}

void PartF::set_language(const automation::Value& language) {
  texts_ = &texts_for(automation::to_text(language));
}

}  // namespace tallyra::standins::lexbank
