#include "frame/collaborators.h"

#include "automation/create.h"

namespace tallyra::frame {

Collaborators& collaborators() {
  thread_local Collaborators set;
  return set;
}

void InitObjects(const std::string& Language, const std::string& SystemDatabase,
                 const std::string& ConnectionString, const std::string& UserID) {
  auto& [messages, rights, wording, system] = collaborators();
  messages = automation::create("Lexbank.ErrMsg");
  rights = automation::create("Corvane.CPowerCheck");
  wording = automation::create("Lexbank.CPartF");
  system = automation::create("Corvane.CSystem");

  messages.put("Language", Language);
  wording.put("Language", Language);

  rights.put("Language", Language);
  rights.put("ConnectionString", ConnectionString);
  rights.put("UserID", UserID);
  rights.put("SystemDatabase", SystemDatabase);

  system.put("Language", Language);
  system.put("ConnectionString", ConnectionString);
  system.put("UserID", UserID);
  system.put("DatabaseName", SystemDatabase);
}

}  // namespace tallyra::frame
