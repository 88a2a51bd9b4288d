#include "standins/ado/postgresql/transaction_control.h"

#include <algorithm>

#include "automation/folded_name.h"
#include "standins/ado/dialect/tokenizer.h"

namespace tallyra::standins::ado {
namespace {

std::string_view take_word(std::string_view& text) {
  constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  text.remove_prefix(dialect::skip_between_tokens(text, 0));
  const std::string_view word = text.substr(0, std::min(text.find_first_not_of(letters), text.size()));
  text.remove_prefix(word.size());
  return word;
}

}  // namespace

Control control_of(std::string_view sql) {
  using automation::equals_folded;
  const std::string_view verb = take_word(sql);
  if (equals_folded(verb, "begin") || equals_folded(verb, "start")) return Control::begin;
  if (equals_folded(verb, "commit") || equals_folded(verb, "end")) return Control::commit;
  if (equals_folded(verb, "savepoint") || equals_folded(verb, "release")) return Control::inner;
  if (!equals_folded(verb, "rollback") && !equals_folded(verb, "abort")) return Control::none;
  std::string_view next = take_word(sql);
  if (equals_folded(next, "work") || equals_folded(next, "transaction")) next = take_word(sql);
  return equals_folded(next, "to") ? Control::inner : Control::rollback;
}

}  // namespace tallyra::standins::ado
