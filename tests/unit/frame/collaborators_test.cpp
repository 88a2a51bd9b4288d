#include "frame/collaborators.h"

#include <gtest/gtest.h>

#include "automation/error.h"
#include "frame/collaborator_member.h"
#include "tests/support/stage.h"

namespace tallyra::frame {
namespace {

using automation::Error;
using automation::Value;
using stage::Stage;

void set_up() {
  InitObjects("DE", "MSSQLSERVER", "DSN=y", "NIGHT");
}

// Each test has a set that no other has left.
class CollaboratorsSetUp : public testing::Test {
 protected:
  CollaboratorsSetUp() { collaborators() = {}; }
  ~CollaboratorsSetUp() override { collaborators() = {}; }

  Stage stage;
};

TEST_F(CollaboratorsSetUp, CreatesTheFourAndTellsEachItsPartOfTheSession) {
  set_up();
  EXPECT_EQ(stage.transcript(),
            "create Lexbank.ErrMsg\n"
            "create Corvane.CPowerCheck\n"
            "create Lexbank.CPartF\n"
            "create Corvane.CSystem\n"
            "messages.Language = 'DE'\n"
            "wording.Language = 'DE'\n"
            "rights.Language = 'DE'\n"
            "rights.ConnectionString = 'DSN=y'\n"
            "rights.UserID = 'NIGHT'\n"
            "rights.SystemDatabase = 'MSSQLSERVER'\n"
            "system.Language = 'DE'\n"
            "system.ConnectionString = 'DSN=y'\n"
            "system.UserID = 'NIGHT'\n"
            "system.DatabaseName = 'MSSQLSERVER'\n");
}

TEST_F(CollaboratorsSetUp, PutsNewOnesInThePlaceOfTheOldAndLetsThoseGo) {
  set_up();
  const auto* const before = collaborators().rights.dispatch();
  set_up();
  EXPECT_NE(collaborators().rights.dispatch(), before);
  EXPECT_EQ(stage.alive(), 4);
}

TEST_F(CollaboratorsSetUp, KeepsWhatWasCreatedBeforeAClassThatCannotBe) {
  stage.fails("create Lexbank.CPartF", Error(429));
  EXPECT_THROW(set_up(), Error);
  EXPECT_TRUE(collaborators().messages);
  EXPECT_TRUE(collaborators().rights);
  EXPECT_FALSE(collaborators().wording);
  EXPECT_FALSE(collaborators().system);
  EXPECT_EQ(stage.transcript().find("Language"), std::string::npos) << "nobody has been told anything";
}

TEST_F(CollaboratorsSetUp, GivesALoopTheMemberOfTheObjectThatIsThereThen) {
  stage.set("wording.NameCheck", "Stocktaking");
  set_up();
  CollaboratorMember note(&Collaborators::wording, "NameCheck");
  EXPECT_EQ(note.now().get(), Value("Stocktaking"));
  EXPECT_EQ(note.now().object(), collaborators().wording);
  set_up();
  EXPECT_EQ(note.now().object(), collaborators().wording);
  EXPECT_EQ(note.now().get(), Value("Stocktaking"));
}

TEST_F(CollaboratorsSetUp, HasTheMemberOfNobodyBeforeItIsDone) {
  CollaboratorMember note(&Collaborators::wording, "NameCheck");
  std::int32_t number = 0;
  try {
    note.now().get();
  } catch (const Error& error) {
    number = error.number();
  }
  EXPECT_EQ(number, 91);
}

}  // namespace
}  // namespace tallyra::frame
