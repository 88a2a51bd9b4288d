#pragma once

#include "automation/member_table.h"
#include "standins/lexbank/texts.h"

namespace tallyra::standins::lexbank {

// Lexbank.ErrMsg: message texts. Language is write-only and chooses the texts (English before that); every
// message is a read-only member named "Msg" and its number, for example Msg10000003. Any other name is error
// 438.
class ErrMsg : public automation::Implements<ErrMsg> {
 public:
  static const automation::MemberTable<ErrMsg>& members();

  void set_language(const automation::Value& language);
  template <std::int32_t Number>
  automation::Value message() {
    static_assert(is_message(Number));
    return texts_->message(Number);
  }

 private:
  const Texts* texts_ = &english;
};

}  // namespace tallyra::standins::lexbank
