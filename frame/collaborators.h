#pragma once

#include <string>

#include "automation/object.h"

namespace tallyra::frame {

// The objects of the sibling libraries. One set per thread, shared by all business objects on it: whoever ran
// the set-up last decides the session values that the set holds.
struct Collaborators {
  automation::Object messages;  // Lexbank.ErrMsg: message texts
  automation::Object rights;    // Corvane.CPowerCheck: rights and the building of statements
  automation::Object wording;   // Lexbank.CPartF: words of generated rows
  automation::Object system;    // Corvane.CSystem: document numbers and part costs
};

// The set of this thread; its objects are none before the first set-up. It lives as long as the apartment of
// the thread, whichever objects come and go meanwhile (see automation::KeptByApartment). Throws Error when a
// thread that has none cannot be given one.
Collaborators& collaborators();

// Replaces the set of this thread by new objects and hands them the session values. Throws Error when a class
// is not registered; the objects created before that one stay in the set.
void InitObjects(const std::string& Language, const std::string& SystemDatabase,
                 const std::string& ConnectionString, const std::string& UserID);

}  // namespace tallyra::frame
