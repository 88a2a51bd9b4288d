#include "client/batch/batch_call.h"

#include <cstdint>
#include <limits>

#include "automation/folded_name.h"
#include "client/catalogue.h"
#include "client/output/json_value.h"
#include "client/typed_value.h"
#include "client/usage_error.h"

namespace tallyra::client {
namespace {

using automation::Value;

Value value_of(const Json& json) {
  if (json.is_null()) return automation::Null{};
  if (json.is_boolean()) return json.get<bool>();
  if (json.is_string()) return parse_typed_value(json.get<std::string>());
  if (!json.is_number()) throw UsageError("a value is a text, a number, true, false or null: " + json.dump());
  if (json.is_number_integer()) {
    const auto number = json.get<double>();
    if (number >= std::numeric_limits<std::int32_t>::min() &&
        number <= std::numeric_limits<std::int32_t>::max())
      return json.get<std::int32_t>();
  }
  return json.get<double>();
}

void read_argument(const Json& json, Call& call) {
  if (!json.is_object()) {
    call.arguments.push_back(value_of(json));
    return;
  }
  if (call.collections_after) throw UsageError("a call has one pair of collections: write one object");
  call.collections_after = call.arguments.size();
  for (const auto& [name, value] : json.items()) {
    call.fields.push_back({name, value_of(value)});
    if (call.fields.back().value.is_missing())
      throw UsageError(name + ": missing: leaves an argument out; a column takes null or empty:");
  }
}

std::string text_of(const Json& json, const char* key) {
  const auto found = json.find(key);
  if (found == json.end() || !found->is_string())
    throw UsageError(std::string("there is no text \"") + key + "\"");
  return found->get<std::string>();
}

Call call_of_words(const Json& words) {
  std::vector<std::string> texts;
  for (const Json& word : words) {
    if (!word.is_string()) throw UsageError("\"words\" is an array of texts");
    texts.push_back(word.get<std::string>());
  }
  return parse_call(texts);
}

void refuse_other_keys(const Json& json) {
  for (const auto& [key, value] : json.items())
    if (key != "class" && key != "member" && key != "arguments")
      throw UsageError("there is no \"" + key + "\" in a call: class, member, arguments, or words alone");
}

Call call_of(const Json& json) {
  if (!json.is_object()) throw UsageError(R"(a call is an object, {"class": ..., "member": ...})");
  if (json.contains("words") && json.size() == 1) return call_of_words(json["words"]);
  refuse_other_keys(json);
  Call call = parse_call({text_of(json, "class"), text_of(json, "member")});
  call.collections_after.reset();
  if (const auto arguments = json.find("arguments"); arguments != json.end()) {
    if (!arguments->is_array()) throw UsageError("\"arguments\" is an array");
    for (const Json& argument : *arguments) read_argument(argument, call);
  }
  if (!call.collections_after && automation::equals_folded(call.member, "Read"))
    call.collections_after = call.arguments.size();
  return call;
}

// Deeper ones would need more stack than there is.
bool refuse_depth(int depth, Json::parse_event_t, const Json&) {
  constexpr int deepest = 8;
  if (depth > deepest) throw UsageError("no call has values within values that deep");
  return true;
}

}  // namespace

Call parse_batch_line(const std::string& line) {
  try {
    return call_of(Json::parse(line, refuse_depth));
  } catch (const Json::exception& error) {
    throw UsageError(std::string("no JSON: ") + error.what());
  }
}

}  // namespace tallyra::client
