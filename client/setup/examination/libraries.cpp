#include <optional>

#include "automation/create.h"
#include "automation/error.h"
#include "client/catalogue.h"
#include "client/platform/class_library.h"
#include "client/setup/examination/examination.h"
#include "client/setup/rights_library.h"
#include "client/setup/trouble.h"

// Whether every class can be created, and which library answers.
namespace tallyra::client {
namespace {

struct Library {
  const char* name;
  std::vector<std::string> classes;
  const char* advice;
};

std::vector<Library> libraries() {
  std::vector<std::string> own;
  for (const ClassEntry& entry : catalogue())
    own.push_back(std::string(library_prefix) + std::string(entry.name));
  return {
      {"ADO", {"ADODB.Connection", "ADODB.Recordset"}, "install ADO, or register the stand-in for it"},
      {"Lexbank", {"Lexbank.ErrMsg", "Lexbank.CPartF"}, "register Lexbank.dll of the suite, or the stand-in"},
      {"Corvane",
       {"Corvane.CPowerCheck", "Corvane.CSystem"},
       "register Corvane.dll of the suite, or the stand-in"},
      {"Tallyra", own, "register Tallyra.dll with regsvr32, as an administrator"},
  };
}

// What is wrong with a class; nothing when it can be created.
std::optional<std::string> complaint(const std::string& prog_id) {
  try {
    automation::create(prog_id);
    return std::nullopt;
  } catch (const automation::Error& error) {
    return prog_id + ": " + error_text(error);
  }
}

Observation look_at(const Library& library) {
  const std::string what = std::string("library ") + library.name;
  for (const std::string& prog_id : library.classes)
    if (const auto text = complaint(prog_id)) return {Health::bad, what, *text, library.advice};
  return {
      Health::good, what,
      std::to_string(library.classes.size()) + " classes, from " + class_library(library.classes.front())};
}

}  // namespace

void examine_libraries(const VerbContext& context, Observations& seen) {
  for (const Library& library : libraries()) seen.push_back(look_at(library));
  try {
    const auto table = RightsLibrary(context.bare_session(), context.user()).table();
    seen.push_back({Health::good, "place of the rights",
                    table ? "table " + *table + " of the database: the stand-in for Corvane answers"
                          : std::string("kept by the installed Corvane itself")});
  } catch (const automation::Error&) {
    // Told above, with its library.
  }
}

}  // namespace tallyra::client
