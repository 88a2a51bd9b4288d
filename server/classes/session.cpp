#include "frame/business_object.h"
#include "server/description.h"

namespace tallyra::server {

using frame::BusinessObject;

std::vector<ClassMember> session_properties() {
  return {
      property_put<&BusinessObject::put_Language>(
          1, "Language", "Language of the message texts; set it before the first method",
          "Language code, EN for example"),
      property_put<&BusinessObject::put_SystemDatabase>(
          2, "SystemDatabase", "Kind of database; set it before the first method", "MSACCESS or MSSQLSERVER"),
      property_get<&BusinessObject::get_ErrNumber>(
          3, "ErrNumber", "Number of the last method's error or message, 0 after a success",
          "The number, in single precision"),
      property_get<&BusinessObject::get_ErrDescription>(
          4, "ErrDescription", "Text of the last method's error or message, empty after a success",
          "The text"),
      property_put<&BusinessObject::put_UserID>(
          5, "UserID", "User whose rights count; set it before the first method", "Login of the user"),
      property_put<&BusinessObject::put_ConnectionString>(
          6, "ConnectionString", "The database; set it before the first method",
          "Connection string of ADO, with what it takes to log in"),
  };
}

}  // namespace tallyra::server
