#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tallyra::standins::corvane {

inline constexpr std::string_view rights_table_name = "USERRIGHTS";

// What a user may do under one function code: 1 for a right, 0 for none.
struct Rights {
  std::int32_t can_insert = 0;
  std::int32_t can_update = 0;
  std::int32_t can_delete = 0;
  std::int32_t can_approved = 0;
  std::int32_t can_unapproved = 0;
  std::int32_t can_cancel = 0;
  std::int32_t can_finished = 0;
  std::int32_t owner = 0;

  bool any() const;
};

// Reads the rights from the table USERRIGHTS, whose USERID and FUNCCODE may be '*' for anybody and any
// function. Of the rows that match, one counts: the user's own row for the function, else the user's for '*',
// else anybody's for the function, else anybody's for '*'; without a row there is no right. Users and codes
// are compared without blanks around them and with their case. Numbers are taken as stored, so that only 1 is
// a right to a caller that asks for 1.
Rights load_rights(const std::string& connection_string, std::string_view user,
                   std::string_view function_code);

}  // namespace tallyra::standins::corvane
