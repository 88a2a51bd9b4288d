#include <gtest/gtest.h>

#include <set>

#include "server/class_table.h"
#include "tests/faults/scene.h"
#include "tests/reentrancy/client_collection.h"

// Nothing is locked: at every moment of a running method, be it inside a call to the outside, in a yield or
// in the client's own collection, the client may use the same object. Whatever it does, the run goes on to
// its end, and nothing of it hangs on what the client let go of or replaced meanwhile.
namespace tallyra {
namespace {

using automation::Object;
using automation::ref;
using automation::Value;
using faults::Scene;
using server::ClassMember;
using server::MemberKind;
using stage::Fields;
using stage::Stage;

constexpr int collaborators = 4;

// Every method of every class that asks anything of the outside; owners have the same way as others here,
// because every right is granted.
std::vector<Scene> scenes() {
  std::vector<Scene> list;
  for (auto& scene : faults::all_scenes())
    if (!scene.branch.starts_with("own")) list.push_back(std::move(scene));
  for (const char* guarded : {"CCheckHead", "CTranHead"})
    list.push_back(
        {guarded, "ValidCloseDT", "",
         [](Stage& stage) {
           stage.finds("Select * From STKCLOSEHD Where CLOSEDT>=#2024/03/31#", {{"CLOSEDT"}, {{"a close"}}});
         },
         [](const Object& object, Fields&) { return object.call("ValidCloseDT", "2024/03/31"); }});
  list.push_back({"CTranDetail", "IssuedOrRtnQty", "", [](Stage&) {},
                  [](const Object& object, Fields&) {
                    Value order = "M1", part = "P1", type = "STK020MISS";
                    return object.call("IssuedOrRtnQty", "T1", ref(order), ref(part), ref(type));
                  }});
  return list;
}

const Scene* scene_of(std::string_view class_name, std::string_view member) {
  static const std::vector<Scene> all = scenes();
  for (const auto& scene : all)
    if (scene.class_name == class_name && scene.member == member) return &scene;
  return nullptr;
}

// A method that a client has called, and the world around it.
struct Play {
  // `meanwhile` is the scene of what the client calls in the midst of it, if that is a method.
  explicit Play(const Scene& played, const Scene* meanwhile = nullptr) : scene(played) {
    scene.prepare(stage);
    // Other session values make other statements.
    stage.finds_nothing_else();
    if (meanwhile) meanwhile->prepare(stage);
    for (const char* right : {"CanInsert", "CanUpdate", "CanDelete", "CanApproved", "CanUnapproved"})
      stage.set(right, 1);
    // ValidCloseDT of CCheckHead takes the collaborators as another object has set them up.
    Value key = "A1";
    stage.client("CRevAddr").call("Delete", ref(key));
    fields.names = automation::make_object<ClientCollection>(stage);
    fields.values = automation::make_object<ClientCollection>(stage);
    Fields::add(fields.names, "COLUMN");
    Fields::add(fields.values, 1);
  }
  Value call() { return scene.call(client, fields); }

  const Scene& scene;
  Stage stage;
  Fields fields;
  Object client = stage.client(scene.class_name);
};

class BusyObject : public testing::TestWithParam<Scene> {
 protected:
  // Plays the scene again and again with `what` done at its first, second, third moment, ..., and hands each
  // play with its result to `check`.
  template <class What, class Check>
  void interrupt_everywhere(const Scene* meanwhile, const What& what, const Check& check) {
    int moment = 0;
    for (bool interrupted = true; interrupted; ++moment) {
      Play play(GetParam(), meanwhile);
      play.stage.interrupts_at(moment, [&] { what(play); });
      Value result;
      ASSERT_NO_THROW(result = play.call()) << play.stage.transcript();
      interrupted = play.stage.interrupted();
      if (interrupted) check(play, result);
      ASSERT_LE(play.stage.alive(), collaborators) << play.stage.transcript();
      if (HasFailure()) FAIL() << "at moment " << moment << "\n" << play.stage.transcript();
    }
    EXPECT_GT(moment, 5);
  }

  template <class Action>
  void for_each_member(MemberKind kind, const Action& action) {
    for (const auto& table : server::classes())
      if (table.name == GetParam().class_name)
        for (const auto& member : table.members)
          if (member.kind == kind) action(member);
  }
};

INSTANTIATE_TEST_SUITE_P(Methods, BusyObject, testing::ValuesIn(scenes()), [](const auto& param) {
  return param.param.class_name + "_" + param.param.member + (param.param.branch.empty() ? "" : "_") +
         param.param.branch;
});

TEST_P(BusyObject, ReadingAPropertyMeanwhileChangesNothing) {
  Play undisturbed(GetParam());
  const Value result = undisturbed.call();
  for_each_member(MemberKind::property_get, [&](const ClassMember& property) {
    interrupt_everywhere(
        nullptr, [&](Play& play) { EXPECT_NO_THROW(play.client.get(property.name)); },
        [&](Play& play, const Value& found) {
          EXPECT_EQ(found, result);
          EXPECT_EQ(play.stage.transcript(), undisturbed.stage.transcript());
        });
  });
}

TEST_P(BusyObject, WritingAPropertyMeanwhileIsTakenAndTheRunGoesOn) {
  Play undisturbed(GetParam());
  const Value result = undisturbed.call();
  // Long enough to move the text that was there.
  const std::string other(100, 'x');
  for_each_member(MemberKind::property_put, [&](const ClassMember& property) {
    interrupt_everywhere(
        nullptr, [&](Play& play) { EXPECT_NO_THROW(play.client.put(property.name, other)); },
        [&](Play&, const Value& found) { EXPECT_EQ(found, result) << property.name; });
  });
}

TEST_P(BusyObject, CallingAMethodMeanwhileIsAnsweredAndTheRunGoesOn) {
  for_each_member(MemberKind::method, [&](const ClassMember& method) {
    const Scene* const meanwhile = scene_of(GetParam().class_name, method.name);
    ASSERT_TRUE(meanwhile) << method.name;
    Play undisturbed(GetParam(), meanwhile);
    const Value result = undisturbed.call();
    Play alone(*meanwhile, &GetParam());
    const Value answer = alone.call();
    interrupt_everywhere(
        meanwhile,
        [&](Play& play) {
          Fields fields{{"COLUMN", 1}};
          EXPECT_EQ(meanwhile->call(play.client, fields), answer) << method.name;
        },
        [&](Play& play, const Value& found) {
          EXPECT_EQ(found, result) << method.name;
          EXPECT_EQ(play.call(), result) << "after " << method.name;
        });
  });
}

TEST_P(BusyObject, TheLastReferenceMayGoMeanwhile) {
  Play undisturbed(GetParam());
  const Value result = undisturbed.call();
  interrupt_everywhere(
      nullptr,
      [](Play& play) {
        play.client = {};
        play.fields = {};
      },
      [&](Play& play, const Value& found) {
        EXPECT_EQ(found, result);
        EXPECT_FALSE(play.client);
      });
}

// The object that is first used last decides the collaborators of the thread, also under a running method.
TEST_P(BusyObject, AnotherObjectMaySetTheCollaboratorsUpMeanwhile) {
  Play undisturbed(GetParam());
  const Value result = undisturbed.call();
  interrupt_everywhere(
      nullptr,
      [](Play& play) {
        Value key = "A1";
        EXPECT_EQ(play.stage.client("CRevAddr").call("Delete", ref(key)), Value(100.0F));
      },
      [&](Play&, const Value& found) { EXPECT_EQ(found, result); });
}

TEST(BusyObjectScenes, CoverEveryMethodOfEveryClass) {
  for (const auto& table : server::classes())
    for (const auto& member : table.members) {
      // GetCheckBalance asks for nothing, so that nobody has a turn in it.
      if (member.kind != MemberKind::method || member.name == "GetCheckBalance") continue;
      EXPECT_TRUE(scene_of(table.name, member.name)) << table.name << "." << member.name;
    }
}

}  // namespace
}  // namespace tallyra
