#include "client/catalogue.h"
#include "client/exit_status.h"
#include "client/manual.h"
#include "client/verbs/verb.h"

namespace tallyra::client {
namespace {

// A text as man takes it literally: a backslash, a hyphen, and a point or quote that begins a line mean
// something else there.
std::string literal(std::string_view text) {
  std::string result;
  bool at_line_begin = true;
  for (const char c : text) {
    if (at_line_begin && (c == '.' || c == '\'')) result += "\\&";
    if (c == '\\')
      result += "\\e";
    else if (c == '-')
      result += "\\-";
    else
      result += c;
    at_line_begin = c == '\n';
  }
  return result;
}

std::string bold(std::string_view text) {
  return "\\fB" + literal(text) + "\\fR";
}

// Lines as they stand.
std::string unfilled(std::string_view text) {
  return ".nf\n" + literal(text) + "\n.fi\n";
}

std::string option_text(const Option& option) {
  std::string text = ".TP\n" + bold(option.name);
  if (!option.value.empty()) text += " \\fI" + literal(option.value) + "\\fR";
  return text + "\n" + literal(option.help) + "\n";
}

std::string verb_text(const Verb& verb) {
  std::string text = ".SS " + std::string(verb.name) + "\n" + bold(verb.name);
  if (!verb.arguments.empty()) text += " " + literal(verb.arguments);
  text += "\n.PP\n" + unfilled(verb.help);
  for (const Option& option : verb.options) text += option_text(option);
  text += ".PP\nExamples:\n.nf\n";
  for (const auto example : verb.examples) text += literal("  tallyra-client " + std::string(example)) + "\n";
  return text + ".fi\n";
}

constexpr std::string_view files_and_variables = R"(.SH ENVIRONMENT
.TP
\fBTALLYRA_DB\fR, \fBTALLYRA_USER\fR, \fBTALLYRA_LANGUAGE\fR, \fBTALLYRA_KIND\fR
stand for the options of these names that the command line does not give.
.TP
\fBTALLYRA_CONFIG\fR
names the file that is read for what is given neither there nor here.
.SH FILES
.TP
\fI$XDG_CONFIG_HOME/tallyra/client.conf\fR
is read when no other file is named: lines such as db=stock.db, # before a remark.
)";

}  // namespace

std::string manual_page() {
  std::string text =
      ".TH TALLYRA-CLIENT 1\n.SH NAME\ntallyra\\-client \\- look after the stock of a company\n"
      ".SH SYNOPSIS\n\\fBtallyra\\-client\\fR VERB [OPTIONS] [ARGUMENT]...\n.br\n"
      "\\fBtallyra\\-client\\fR [OPTIONS] [\\-\\-] CLASS MEMBER [ARGUMENT | COLUMN=value | @]...\n"
      ".SH DESCRIPTION\nCarries out a verb, or calls one member of a class and prints what came of it.\n"
      ".SH VERBS\n";
  for (const Verb* verb : verbs()) text += verb_text(*verb);
  text += ".SH OPTIONS OF EVERY VERB\n";
  for (const Option& option : common_options()) text += option_text(option);
  text += ".SH OPTIONS WITHOUT A VERB\n";
  for (const Option& option : program_options()) text += option_text(option);
  text += ".SH CLASSES\n";
  for (const auto& entry : catalogue())
    text += ".TP\n" + bold(entry.name) + "\n" + literal(entry.purpose) + "\n";
  text += ".SH EXIT STATUS\n";
  for (const auto& [status, meaning] : exit_meanings())
    text += ".TP\n" + bold(std::to_string(status)) + "\n" + literal(meaning) + "\n";
  return text.append(files_and_variables);
}

}  // namespace tallyra::client
