#include "client/call.h"

#include <algorithm>
#include <utility>

#include "automation/folded_name.h"
#include "client/catalogue.h"
#include "client/typed_value.h"
#include "client/usage_error.h"
#include "client/verbs/verb.h"

namespace tallyra::client {
namespace {

bool is_name_start(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool is_name_part(char c) {
  return is_name_start(c) || (c >= '0' && c <= '9') || c == '.';
}

// The length of the column name in COLUMN=value, 0 for a word of another form: a name has no blanks, so that
// a statement such as "Select 1 Where A=1" is an ordinary argument.
std::size_t column_length(std::string_view word) {
  const std::size_t equals = word.find('=');
  if (equals == std::string_view::npos || equals == 0 || !is_name_start(word.front())) return 0;
  return std::ranges::all_of(word.substr(0, equals), is_name_part) ? equals : 0;
}

Field parse_field(std::string_view word, std::size_t column_length) {
  Field field{std::string(word.substr(0, column_length)), parse_typed_value(word.substr(column_length + 1))};
  if (field.value.is_missing())
    throw UsageError("'" + std::string(word) +
                     "': missing: leaves an argument out; a column takes null: or empty: instead");
  return field;
}

std::string full_prog_id(std::string_view name) {
  if (name.find('.') != std::string_view::npos) return std::string(name);
  const ClassEntry* known = find_class(name);
  return std::string(library_prefix) + std::string(known ? known->name : name);
}

class CallReader {
 public:
  explicit CallReader(Call& call) : call_(call) {}

  void read(std::string_view word) {
    const std::size_t column = column_length(word);
    if (column == 0) in_pairs_ = false;
    if (column != 0) {
      if (!in_pairs_) begin_collections();
      in_pairs_ = true;
      call_.fields.push_back(parse_field(word, column));
    } else if (word == "@") {
      begin_collections();
    } else {
      call_.arguments.push_back(parse_typed_value(word));
    }
  }

  void begin_collections() {
    if (call_.collections_after)
      throw UsageError(
          "a call has one pair of collections: write all COLUMN=value words next to each other, or one @ "
          "(t:... passes such a word as text)");
    call_.collections_after = call_.arguments.size();
  }

 private:
  Call& call_;
  bool in_pairs_ = false;
};

}  // namespace

Call parse_call(const std::vector<std::string>& words) {
  if (words.empty() || words[0].empty())
    throw UsageError("no verb and no class given; the verbs are " + verb_names() + "; the classes are " +
                     class_names());
  Call call;
  call.prog_id = full_prog_id(words[0]);
  if (words.size() < 2 || words[1].empty())
    throw UsageError("no member of " + call.prog_id + " given" + members_hint(call.prog_id));
  call.member = words[1];

  CallReader reader(call);
  for (std::size_t i = 2; i < words.size(); ++i) reader.read(words[i]);
  if (!call.collections_after && automation::equals_folded(call.member, "Read")) reader.begin_collections();
  return call;
}

}  // namespace tallyra::client
