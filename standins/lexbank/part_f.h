#pragma once

#include "automation/member_table.h"
#include "standins/lexbank/texts.h"

namespace tallyra::standins::lexbank {

// Lexbank.CPartF: the words that generated rows carry. Language is write-only and chooses them (English
// before that). Both words can stand between single quotes as they are.
class PartF : public automation::Implements<PartF> {
 public:
  static const automation::MemberTable<PartF>& members();

  void set_language(const automation::Value& language);
  // The status of a document that the system has approved itself.
  automation::Value status_approved() { return texts_->status_approved; }
  // The note on rows that a stocktaking has caused.
  automation::Value name_check() { return texts_->name_check; }

 private:
  const Texts* texts_ = &english;
};

}  // namespace tallyra::standins::lexbank
