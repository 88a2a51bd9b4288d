#include <gtest/gtest.h>

#include <functional>
#include <thread>

#include "automation/apartment.h"
#include "automation/create.h"
#include "automation/local/local_classes.h"
#include "frame/collaborators.h"
#include "tests/support/outcome.h"
#include "tests/support/stage.h"

// The set of collaborators of a thread: whose it is and how long it lasts.
namespace tallyra {
namespace {

using automation::Object;
using automation::Value;
using stage::Stage;

TEST(Collaborators, EveryThreadHasItsOwnSet) {
  Stage stage;
  stage.client("CRevAddr").call("Delete", "A1");
  const Object here = frame::collaborators().rights;
  Object there;
  std::thread([&] {
    EXPECT_FALSE(frame::collaborators().rights) << "nothing has been set up on this thread yet";
    stage.client("CRevAddr").call("Delete", "A1");
    there = frame::collaborators().rights;
  }).join();
  EXPECT_TRUE(there);
  EXPECT_NE(there, here);
  EXPECT_EQ(frame::collaborators().rights, here);
}

// A collaborator that tells when it is let go, and may have something done then.
class Leaving : public automation::Dispatch {
 public:
  explicit Leaving(std::function<void()> at_end) : at_end_(std::move(at_end)) {}
  ~Leaving() override { at_end_(); }
  automation::MemberId resolve(std::string_view) override { return 1; }
  Value invoke(automation::MemberId, automation::Access, automation::Arguments) override { return {}; }

 private:
  std::function<void()> at_end_;
};

TEST(Collaborators, TheSetOutlivesItsObjectsAndGoesWithTheApartmentOfTheThread) {
  Stage stage;
  int gone = 0;
  std::thread([&] {
    const automation::Apartment apartment;
    stage.client("CRevAddr").call("Delete", "A1");
    EXPECT_TRUE(frame::collaborators().rights) << "the object has gone";
    const auto count = [&gone] { ++gone; };
    frame::collaborators().wording = automation::make_object<Leaving>([count] {
      count();
      frame::collaborators().system = automation::make_object<Leaving>(count);
    });
    EXPECT_EQ(gone, 0);
  }).join();
  EXPECT_EQ(gone, 2) << "the second was set up by the first";
}

TEST(Collaborators, ASetUpThatFailsIsMadeUpForByTheNextCall) {
  Stage stage;
  stage.set("CanDelete", 1);
  const Object object = stage.client("CRevAddr");
  {
    const automation::local::ScopedClass hidden("Lexbank.CPartF", nullptr);
    EXPECT_EQ(stage::outcome_of(object, object.call("Delete", "A1")).number, 429);
  }
  EXPECT_TRUE(frame::collaborators().rights);
  EXPECT_FALSE(frame::collaborators().wording);
  EXPECT_EQ(stage::outcome_of(object, object.call("Delete", "A1")), stage::done);
}

}  // namespace
}  // namespace tallyra
