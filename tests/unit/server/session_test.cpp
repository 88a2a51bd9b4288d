#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>
#include <thread>

#include "automation/apartment.h"
#include "automation/convert.h"
#include "automation/create.h"
#include "frame/collaborators.h"
#include "tests/support/fields.h"
#include "tests/support/outcome.h"
#include "tests/support/stage.h"

// The session that an object begins with, the set of collaborators of a thread, and the last line of the
// error trap.
namespace tallyra {
namespace {

using automation::Object;
using automation::ref;
using automation::Value;
using stage::Fields;
using stage::Stage;

TEST(Session, BeginsAsAccessExceptInStocktakings) {
  const struct {
    const char* class_name;
    int keys;
    const char* kind;
  } rows[] = {
      {"CRevAddr", 1, "MSACCESS"},    {"CSTKController", 1, "MSACCESS"}, {"CStkShipNote", 1, "MSACCESS"},
      {"CStockClose", 1, "MSACCESS"}, {"CPartCostSet", 1, "MSACCESS"},   {"CTranHead", 2, "MSACCESS"},
      {"CTranDetail", 3, "MSACCESS"}, {"CCheckDetail", 2, "MSACCESS"},   {"CCheckHead", 1, ""}};
  for (const auto& [class_name, keys, kind] : rows) {
    Stage stage;
    stage.finds_nothing_else();
    const Object object = automation::create(std::string("Tallyra.") + class_name);
    Fields fields;
    std::vector<Value> values(static_cast<std::size_t>(keys), Value("1"));
    values.push_back(fields.names);
    values.push_back(fields.values);
    std::vector<automation::Argument> arguments(values.begin(), values.end());
    object.invoke(object.resolve("Read"), automation::Access::read, arguments);
    EXPECT_NE(stage.transcript().find("rights.SystemDatabase = '" + std::string(kind) + "'\n"),
              std::string::npos)
        << class_name << "\n"
        << stage.transcript();
  }
}

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

// Raises what no collaborator should.
class Wild : public automation::Dispatch {
 public:
  explicit Wild(void (*raise)()) : raise_(raise) {}
  automation::MemberId resolve(std::string_view) override { return 1; }
  Value invoke(automation::MemberId, automation::Access, automation::Arguments) override {
    raise_();
    return {};
  }

 private:
  void (*raise_)();
};

TEST(ErrorTrap, LetsNoExceptionOut) {
  const struct {
    void (*raise)();
    double number;
    const char* description;
  } rows[] = {{[] { throw std::bad_alloc(); }, 7, "Out of memory"},
              {[] { throw std::runtime_error("torn"); }, stage::narrowed(-2147418113.0), "torn"},
              {[] { throw 5; }, stage::narrowed(-2147418113.0), "Catastrophic failure"}};
  for (const auto& [raise, number, description] : rows) {
    Stage stage;
    const automation::local::ScopedClass wild(
        "Corvane.CPowerCheck", [raise = raise] { return automation::make_object<Wild>(raise); });
    const Object object = stage.client("CRevAddr");
    EXPECT_EQ(stage::outcome_of(object, object.call("Delete", "A1")),
              (stage::Outcome{0, number, description}));
  }
}

}  // namespace
}  // namespace tallyra
