#pragma once

#include <string>
#include <vector>

#include "client/setup/rights_library.h"
#include "client/verbs/context.h"

namespace tallyra::client {

// Gives a user rights for a function, or takes them away. Of the rows that fit a user and a function one
// alone counts, so a new row begins with what counted before it. Returns what the user may do there now. To
// take away from a user who has no row and no right throws Refusal: the name is most likely misspelt.
RightFlags grant_rights(VerbContext& context, const std::string& user, const std::string& function,
                        const std::vector<std::size_t>& places);
RightFlags revoke_rights(VerbContext& context, const std::string& user, const std::string& function,
                         const std::vector<std::size_t>& places);

// Functions for which the user has a row of his own, which hides what is granted for '*'.
std::vector<std::string> functions_of_his_own(VerbContext& context, const std::string& user);

}  // namespace tallyra::client
