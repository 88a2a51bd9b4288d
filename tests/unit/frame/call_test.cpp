#include "frame/call.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "automation/local/local_classes.h"
#include "tests/support/outcome.h"
#include "tests/support/stage.h"

// The last line of the error trap.
namespace tallyra {
namespace {

using automation::Object;
using automation::Value;
using stage::Stage;

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
