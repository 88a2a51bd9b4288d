#include "close/stock_close_failure.h"

#include <array>
#include <string_view>

#include "frame/collaborators.h"

namespace tallyra::close {
namespace {

using frame::Call;

// Lines first. Both kinds of database get this form.
constexpr std::array<std::string_view, 4> removals = {
    "Delete STKTRANDT.* From STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO"
    " Where STKTRANHD.TRANTYPE='STK027CLOSE' AND STKTRANHD.STATUSSN=0",
    "Delete STKTRANDT.* From STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO"
    " Where STKTRANHD.TRANTYPE='STKCLOSEALL' AND STKTRANHD.STATUSSN=0",
    "Delete * From STKTRANHD Where STKTRANHD.TRANTYPE='STK027CLOSE' AND STKTRANHD.STATUSSN=0",
    "Delete * From STKTRANHD Where STKTRANHD.TRANTYPE='STKCLOSEALL' AND STKTRANHD.STATUSSN=0",
};

}  // namespace

void remove_unapproved_documents(frame::Connection& connection) {
  connection.begin();
  for (const auto statement : removals) connection.execute(statement);
  connection.commit();
}

void leave_without_departments(Call& call) {
  call.set_error(1, "Department have not been setted");
  call.leave();
}

void leave_without_department_number(Call& call) {
  call.copy_error(frame::collaborators().system);
  call.leave();
}

void leave_without_company_number(Call& call) {
  remove_unapproved_documents(call.connection);
  call.copy_error(frame::collaborators().system);
  call.leave();
}

void leave_after_failed_step(Call& call) {
  remove_unapproved_documents(call.connection);
  call.connection.close();
  call.leave();
}

void leave_without_record_statement(Call& call) {
  remove_unapproved_documents(call.connection);
  call.copy_builder_error();
  call.close_all();
  call.leave();
}

}  // namespace tallyra::close
