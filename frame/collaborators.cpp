#include "frame/collaborators.h"

#include <memory>

#include "automation/apartment.h"
#include "automation/create.h"

namespace tallyra::frame {
namespace {

// Nothing else keeps anything of a thread.
struct KeptCollaborators final : automation::KeptByApartment {
  Collaborators set;
};

}  // namespace

Collaborators& collaborators() {
  if (auto* const kept = automation::kept_by_apartment()) return static_cast<KeptCollaborators*>(kept)->set;
  auto fresh = std::make_unique<KeptCollaborators>();
  Collaborators& set = fresh->set;
  automation::keep_until_apartment_ends(std::move(fresh));
  return set;
}

// The set is asked for anew at each step: what runs in a collaborator may have replaced it.
void InitObjects(const std::string& Language, const std::string& SystemDatabase,
                 const std::string& ConnectionString, const std::string& UserID) {
  collaborators().messages = automation::create("Lexbank.ErrMsg");
  collaborators().rights = automation::create("Corvane.CPowerCheck");
  collaborators().wording = automation::create("Lexbank.CPartF");
  collaborators().system = automation::create("Corvane.CSystem");

  collaborators().messages.put("Language", Language);
  collaborators().wording.put("Language", Language);

  const automation::Object rights = collaborators().rights;
  rights.put("Language", Language);
  rights.put("ConnectionString", ConnectionString);
  rights.put("UserID", UserID);
  rights.put("SystemDatabase", SystemDatabase);

  const automation::Object system = collaborators().system;
  system.put("Language", Language);
  system.put("ConnectionString", ConnectionString);
  system.put("UserID", UserID);
  system.put("DatabaseName", SystemDatabase);
}

}  // namespace tallyra::frame
