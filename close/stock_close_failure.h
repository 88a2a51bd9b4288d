#pragma once

#include "frame/call.h"

// The ways out of a month close that has begun and fails. They differ in what becomes of the documents
// written so far, in whose error the client is told, and in what is closed; clients know each as it is. All
// keep one order: documents, error, recordset and connection.
namespace tallyra::close {

// Deletes every close document that nobody has approved, of whatever month, in a transaction of its own. The
// run begins so; later it stands in for a rollback of documents that are committed one by one.
void remove_unapproved_documents(frame::Connection& connection);

// There is no department: the close's own text, the connection let go.
[[noreturn]] void leave_without_departments(frame::Call& call);

// No number for a department's document: the system object's error, the connection let go, and the documents
// of the departments before it stay until the next run.
[[noreturn]] void leave_without_department_number(frame::Call& call);

// No number for the company's document: the documents removed, the system object's error, the connection let
// go.
[[noreturn]] void leave_without_company_number(frame::Call& call);

// A step has failed: the documents removed, the error that the step has left, the connection closed and the
// list of departments let go.
[[noreturn]] void leave_after_failed_step(frame::Call& call);

// The close record cannot be put into a statement: the documents removed, the builder's error, everything
// closed.
[[noreturn]] void leave_without_record_statement(frame::Call& call);

}  // namespace tallyra::close
