#pragma once

#include <string>

#include "automation/value.h"
#include "frame/session.h"

namespace tallyra::frame {

// How a class asks whether a month close covers a document date. Two classes do, and clients know the two by
// their differences.
struct ClosingDateGuard {
  // A value that has no text form, Null among them, raises to the caller when the statement is built before
  // the error trap is armed; inside the trap it is an error like any other.
  enum class Statement { before_trap, inside_trap } statement;
  // Either set up when this object has not yet done so, or taken as an earlier method on the thread left
  // them.
  enum class Collaborators { set_up, as_they_are } collaborators;
  // What an error is reported as: as a closed period, so that a failing query never lets a date pass, or as
  // itself.
  enum class Trap { closed_period, the_error } trap;
};

// The verdict is ErrNumber: 0 for an open date, 10000112 when a close record exists on or after it. The
// result is always Empty. Throws Error 438 when an error strikes while the connection is open, after the
// error fields are set, and whatever the reporting of a closed period itself meets; such a connection is let
// go unclosed. `system_database` is the field of the session, which is read when the statement is built.
automation::Value valid_close_date(Session& session, const std::string& system_database,
                                   const automation::Value& date, const ClosingDateGuard& guard);

}  // namespace tallyra::frame
