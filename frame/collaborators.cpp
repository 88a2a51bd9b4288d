#include "frame/collaborators.h"

#include <memory>
#include <utility>

#include "automation/create.h"

namespace tallyra::frame {
namespace {

#ifdef _WIN32
// A thread-local with a destructor would keep the DLL loaded for as long as the thread lives.
using Holder = Collaborators*;
#else
using Holder = std::unique_ptr<Collaborators>;
#endif

thread_local Holder of_thread{};

}  // namespace

Collaborators& collaborators() {
  if (!of_thread) of_thread = Holder(new Collaborators);
  return *of_thread;
}

void release_collaborators() noexcept {
  // Out of reach before the last references go: letting them go may run any code.
  const std::unique_ptr<Collaborators> released(std::exchange(of_thread, nullptr));
}

void InitObjects(const std::string& Language, const std::string& SystemDatabase,
                 const std::string& ConnectionString, const std::string& UserID) {
  // Each step asks for the set anew: another set-up may run while a class is created or told something.
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
