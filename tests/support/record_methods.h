#pragma once

#include <string_view>
#include <utility>

#include "automation/object.h"
#include "automation/value.h"
#include "tests/support/fields.h"
#include "tests/support/outcome.h"

// The methods of the classes that keep their rows by a key, and the steps of a month close, as a late-bound
// client calls them: from variables. Those of documents and their lines stand in document_methods.h.
namespace tallyra::stage {

// Read, Insert and Update; a line of a stocktaking has two keys. What they return: of keys that a short text
// holds nothing here asks for memory.
inline automation::Value call_record(const automation::Object& object, std::string_view member,
                                     automation::Value key, Fields& fields) {
  using automation::ref;
  return object.call(member, ref(key), ref(fields.names), ref(fields.values));
}
inline automation::Value call_record(const automation::Object& object, std::string_view member,
                                     automation::Value key, automation::Value part, Fields& fields) {
  using automation::ref;
  return object.call(member, ref(key), ref(part), ref(fields.names), ref(fields.values));
}
// Update in classes that take a tag.
inline automation::Value call_record(const automation::Object& object, std::string_view member,
                                     automation::Value key, Fields& fields, automation::Value tag) {
  using automation::ref;
  return object.call(member, ref(key), ref(fields.names), ref(fields.values), ref(tag));
}
// Delete.
inline automation::Value call_record(const automation::Object& object, std::string_view member,
                                     automation::Value key) {
  return object.call(member, automation::ref(key));
}
inline automation::Value call_record(const automation::Object& object, std::string_view member,
                                     automation::Value key, automation::Value part) {
  return object.call(member, automation::ref(key), automation::ref(part));
}

inline automation::Value close_department(const automation::Object& object, automation::Value number,
                                          automation::Value date, automation::Value department) {
  using automation::ref;
  return object.call("STKMonthCloseDept", ref(number), ref(date), ref(department));
}
inline automation::Value close_company(const automation::Object& object, automation::Value number,
                                       automation::Value date) {
  return object.call("STKMonthClose", automation::ref(number), automation::ref(date));
}

// What a client sees of call_record.
template <class... Arguments>
Outcome play_record(const automation::Object& object, std::string_view member, Arguments&&... arguments) {
  return outcome_of(object, call_record(object, member, std::forward<Arguments>(arguments)...));
}

}  // namespace tallyra::stage
