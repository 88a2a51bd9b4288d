#pragma once

#include <string>

#include "automation/value.h"
#include "frame/business_object.h"

// Whether a month close covers a date. The verdict is ErrNumber: 0 for an open date, 10000112 when a close
// record exists on or after it. The result is always Empty. An error that strikes while the connection is
// open is told in the error fields and raised as Error 438 as well; such a connection is let go unclosed.
// `system_database` is the field of the object, which is read when the statement is built.
//
// Two classes ask, each in its way, and clients know them by that.
namespace tallyra::frame {

// Any error counts as a closed period, so that a failing query never lets a date pass. Sets the collaborators
// up if the object has not yet done so. A value that has no text form, Null among them, raises to the caller
// with the error fields as they were; so does whatever the reporting of a closed period meets.
automation::Value valid_unless_in_doubt(BusinessObject& object, const std::string& system_database,
                                        const automation::Value& date);

// An error is told as itself. Takes the collaborators as an earlier method on the thread has left them.
automation::Value valid_unless_error(BusinessObject& object, const std::string& system_database,
                                     const automation::Value& date);

}  // namespace tallyra::frame
