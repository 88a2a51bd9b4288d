#include "client/help_text.h"

#include <string>

#include "client/catalogue.h"
#include "client/exit_status.h"
#include "client/verbs/verb.h"

namespace tallyra::client {
namespace {

constexpr std::string_view words_text = R"(Words:
  CLASS         a ProgID such as Tallyra.CRevAddr; without a point it is one of Tallyra's: CRevAddr
  MEMBER        the name of a method or property, in any case
  ARGUMENT      the arguments in their order; they go by reference, and those that come back changed are
                printed, those given as empty: in any case
  COLUMN=value  all such words together, next to each other, stand for the two collections (column names and
                values) at their place among the arguments
  @             two empty collections, to be filled; Read gets them as its last arguments by itself
  --            ends the options: what follows may begin with '-'; negative numbers may anywhere

Values are texts unless they begin with the mark of a type:
  n:12.5    double               d:2024/01/31            date
  i:3       32-bit integer       'd:2024/01/31 14:05:09' date and time
  b:true    boolean              null:                   Null
  t:n:12    the text "n:12"      empty:                  Empty (for an argument that only receives)
  t:A=1     the text "A=1"       missing:                an optional argument left out
)";

constexpr std::string_view examples_text = R"(Examples:
  tallyra-client --db stock.db --user ANNA CRevAddr Read A1
  tallyra-client --db stock.db --user ANNA CRevAddr Insert A1 ADDRNO=A1 ADDRNM=Harbour ADDBY=ANNA
  tallyra-client --db stock.db --user ANNA CStockClose Insert 2024/01/31 CLOSEDT=d:2024/01/31 STATUSSN=i:0
  tallyra-client --db stock.db --user ANNA CStockClose Update 2024/01/31 STATUSSN=i:1 APPROVED
  tallyra-client --db stock.db CTranDetail PORefQty PO1 i:1 empty: empty: empty: PO
  tallyra-client --db 'DSN=stock' --kind MSSQLSERVER --json CTranHead Read T1 STK010POREV
)";

constexpr std::string_view raw_status_text = R"(
A raw call ends with 1 when ErrNumber is not 0 (Read of a row that does not exist: 10000003), or a method that
answers 100 for success has answered 0, or an error left the object: told on the error output and, with --json, as
"raised". ErrNumber is shown then too: ValidCloseDT raises error 438 beside its 10000112. Approving a stocktaking
that has lines ends so although everything is stored; Read it to see whether it has the STATUSSN and STATUSDT that
were given. The client looks for itself whether its posting has a number, and tells on the error output if it has
not. Any object's errors 13, 448, 449 and 450, which blame what it was handed, end with 2, and so does 438 of a
member that is no method listed by --list.
)";

constexpr std::string_view environment_text = R"(
Environment:
  TALLYRA_DB, TALLYRA_USER, TALLYRA_LANGUAGE, TALLYRA_KIND
                   what --db, --user, --language and --kind would say; they themselves go before
  TALLYRA_CONFIG   a file with lines such as db=stock.db, which the variables go before; without it and --config
                   that is tallyra/client.conf in $XDG_CONFIG_HOME, ~/.config or, on Windows, %APPDATA%
)";

std::string status_text() {
  std::string text = "\nExit status:\n";
  for (const auto& [status, meaning] : exit_meanings()) {
    const std::string number = std::to_string(status);
    text.append("  ").append(number).append(5 - number.size(), ' ').append(meaning) += '\n';
  }
  return text.append(raw_status_text);
}

}  // namespace

std::string help_details() {
  std::string text =
      "Verbs:\n" + verbs_text() + "'tallyra-client help VERB' tells of each.\n\n" + std::string(words_text);
  text += '\n';
  text += examples_text;
  text += environment_text;
  text += status_text();
  text += "\nClasses:\n";
  for (const auto& entry : catalogue())
    text.append("  ").append(entry.name).append(16 - entry.name.size(), ' ').append(entry.purpose) += '\n';
  return text;
}

}  // namespace tallyra::client
