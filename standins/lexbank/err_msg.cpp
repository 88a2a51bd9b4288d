#include "standins/lexbank/err_msg.h"

#include "automation/convert.h"
#include "standins/lexbank/language.h"

namespace tallyra::standins::lexbank {

const automation::MemberTable<ErrMsg>& ErrMsg::members() {
  using automation::property;
  static const automation::MemberTable<ErrMsg> table{
      {1, "Language", automation::write_only<&ErrMsg::set_language>},
      {2, "Msg10000002", property<&ErrMsg::message<10000002>>},
      {3, "Msg10000003", property<&ErrMsg::message<10000003>>},
      {4, "Msg10000004", property<&ErrMsg::message<10000004>>},
      {5, "Msg10000016", property<&ErrMsg::message<10000016>>},
      {6, "Msg10000024", property<&ErrMsg::message<10000024>>},
      {7, "Msg10000112", property<&ErrMsg::message<10000112>>},
      {8, "Msg10000115", property<&ErrMsg::message<10000115>>},
      {9, "Msg20000005", property<&ErrMsg::message<20000005>>},
  };
  return table;
}

void ErrMsg::set_language(const automation::Value& language) {
  texts_ = &texts_for(automation::to_text(language));
}

}  // namespace tallyra::standins::lexbank
