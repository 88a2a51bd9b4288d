#pragma once

#include <string>

#include "automation/object.h"
#include "automation/value.h"
#include "tests/support/fields.h"
#include "tests/support/outcome.h"

// The methods of CTranHead and CTranDetail as a late-bound client calls them: variables by reference wherever
// the method takes them so.
namespace tallyra::transactions_test {

using automation::Object;
using automation::ref;
using automation::Value;
using stage::Fields;
using stage::Outcome;
using stage::outcome_of;

// What a client passes for an argument that it leaves out.
inline const Value omitted{automation::Missing{}};

inline Outcome read_head(const Object& head, Value number, Value type, Fields& fields) {
  return outcome_of(head, head.call("Read", ref(number), ref(type), ref(fields.names), ref(fields.values)));
}

inline Outcome update_head(const Object& head, Value number, Value type, Fields& fields, Value tag = "") {
  return outcome_of(head,
                    head.call("Update", number, ref(type), ref(fields.names), ref(fields.values), ref(tag)));
}

inline Outcome insert_head(const Object& head, Value number, Value type, Fields& fields,
                           Value copied = omitted) {
  return outcome_of(
      head, head.call("Insert", number, ref(type), ref(fields.names), ref(fields.values), ref(copied)));
}

inline Outcome delete_head(const Object& head, Value number, Value type) {
  return outcome_of(head, head.call("Delete", number, ref(type)));
}

// A line's document, type, reference and part; the number is -1 or left out when the part addresses it.
struct Line {
  Value document = "T1";
  Value type = "STK010POREV";
  Value reference = "PO1";
  Value part = "P1";
  Value number = omitted;
};

inline Outcome read_line(const Object& detail, Line line, Fields& fields) {
  return outcome_of(detail, detail.call("Read", ref(line.document), ref(line.reference), ref(line.part),
                                        ref(fields.names), ref(fields.values), ref(line.number)));
}

inline Outcome write_line(const Object& detail, const char* member, Line line, Fields& fields) {
  return outcome_of(
      detail, detail.call(member, ref(line.document), ref(line.type), ref(line.reference), ref(line.part),
                          ref(fields.names), ref(fields.values), ref(line.number)));
}

inline Outcome delete_line(const Object& detail, Line line) {
  return outcome_of(detail, detail.call("Delete", ref(line.document), ref(line.type), ref(line.reference),
                                        ref(line.part), ref(line.number)));
}

inline Outcome insert_return(const Object& detail, Value document, Value number, Fields& fields,
                             Value check = omitted) {
  return outcome_of(detail, detail.call("InsertRTN", document, ref(number), ref(fields.names),
                                        ref(fields.values), ref(check)));
}

inline Outcome update_return(const Object& detail, Value document, Value number, Fields& fields) {
  return outcome_of(detail,
                    detail.call("UpdateRTN", document, ref(number), ref(fields.names), ref(fields.values)));
}

// The three outputs of PORefQty.
struct Quantities {
  Value ordered = -1.0;
  Value received = -1.0;
  Value returned = -1.0;
  friend bool operator==(const Quantities&, const Quantities&) = default;
};

inline Outcome order_quantities(const Object& detail, Value reference, Value number, Quantities& quantities,
                                Value type = omitted) {
  return outcome_of(detail, detail.call("PORefQty", ref(reference), ref(number), ref(quantities.ordered),
                                        ref(quantities.received), ref(quantities.returned), ref(type)));
}

inline Outcome issued_or_returned(const Object& detail, Value document, Value order, Value part, Value type,
                                  Value kind = omitted) {
  return outcome_of(detail,
                    detail.call("IssuedOrRtnQty", document, ref(order), ref(part), ref(type), ref(kind)));
}

inline Outcome requirement(const Object& detail, Value order, Value part, Value type = omitted) {
  return outcome_of(detail, detail.call("GetMRPQty", order, ref(part), ref(type)));
}

}  // namespace tallyra::transactions_test
