#include "frame/collaborators.h"

#include <memory>
#include <utility>

#include "automation/create.h"

namespace tallyra::frame {
namespace {

#ifdef _WIN32
constexpr bool ends_with_thread = false;
#else
constexpr bool ends_with_thread = true;
#endif

struct ThreadSet {
  std::unique_ptr<Collaborators> set;

  ~ThreadSet() {
    if constexpr (!ends_with_thread) static_cast<void>(set.release());
  }
};

thread_local ThreadSet of_thread;

}  // namespace

Collaborators& collaborators() {
  if (!of_thread.set) of_thread.set = std::make_unique<Collaborators>();
  return *of_thread.set;
}

void release_collaborators() noexcept {
  // Out of reach before the last references go: letting them go may run any code.
  const auto released = std::move(of_thread.set);
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
