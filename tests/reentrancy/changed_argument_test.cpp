#include <gtest/gtest.h>

#include "close/part_cost_set.h"
#include "close/stock_close.h"
#include "masterdata/rev_addr.h"
#include "masterdata/stk_controller.h"
#include "masterdata/stk_ship_note.h"
#include "stockcheck/check_detail.h"
#include "stockcheck/check_head.h"
#include "tests/reentrancy/client_collection.h"
#include "transactions/tran_detail.h"
#include "transactions/tran_head.h"

// The classes themselves, without the dispatch that gives every call its own arguments: what is passed by
// reference may change at every moment of the call.
namespace tallyra {
namespace {

using automation::Object;
using stage::Stage;

// A text in memory of its own, which goes when the text is replaced.
std::string in_its_own_memory(std::string_view content) {
  std::string text;
  text.reserve(100);
  text = content;
  return text;
}

struct Arguments {
  explicit Arguments(Stage& stage)
      : names(automation::make_object<ClientCollection>(stage)),
        values(automation::make_object<ClientCollection>(stage)) {
    names.call("Add", "COLUMN");
    values.call("Add", 1);
  }

  void change() {
    for (std::string* text : {&key, &type, &tag, &part}) *text = std::string(400, 'x');
    names = {};
    values = {};
  }

  std::string key = in_its_own_memory("K");
  std::string type = in_its_own_memory("STK011PORTN");
  std::string tag = in_its_own_memory("FINISHED");
  std::string part = in_its_own_memory("P");
  std::int16_t short_number = 1;
  std::int32_t number = 1;
  double quantity = 0;
  Object names;
  Object values;
};

template <class Class>
void call_at_every_moment(const std::function<void(Class&, Arguments&)>& call) {
  bool interrupted = true;
  int moment = 0;
  for (; interrupted; ++moment) {
    Stage stage;
    stage.finds_nothing_else();
    for (const char* right : {"CanInsert", "CanUpdate", "CanDelete", "CanFinished"}) stage.set(right, 1);
    Arguments arguments(stage);
    Class object;
    stage.interrupts_at(moment, [&] { arguments.change(); });
    EXPECT_NO_THROW(call(object, arguments)) << stage.transcript();
    EXPECT_GE(object.get_ErrNumber(), 0) << stage.transcript();
    interrupted = stage.interrupted();
  }
  EXPECT_GT(moment, 3);
}

template <class Class>
void call_with_key() {
  call_at_every_moment<Class>([](Class& object, Arguments& a) { object.Read(a.key, a.names, a.values); });
  call_at_every_moment<Class>([](Class& object, Arguments& a) { object.Insert(a.key, a.names, a.values); });
  call_at_every_moment<Class>([](Class& object, Arguments& a) { object.Delete(a.key); });
}

TEST(ChangedArgument, OfMasterDataIsNoMatter) {
  call_with_key<masterdata::CRevAddr>();
  call_with_key<masterdata::CSTKController>();
  call_with_key<masterdata::CStkShipNote>();
  call_at_every_moment<masterdata::CRevAddr>(
      [](auto& object, Arguments& a) { object.Update(a.key, a.names, a.values); });
}

TEST(ChangedArgument, OfStocktakingsIsNoMatter) {
  using stockcheck::CCheckDetail;
  call_with_key<stockcheck::CCheckHead>();
  call_at_every_moment<stockcheck::CCheckHead>(
      [](auto& object, Arguments& a) { object.Update(a.key, a.names, a.values, a.tag); });
  call_at_every_moment<CCheckDetail>(
      [](auto& object, Arguments& a) { object.Read(a.key, a.part, a.names, a.values); });
  call_at_every_moment<CCheckDetail>(
      [](auto& object, Arguments& a) { object.Insert(a.key, a.part, a.names, a.values); });
  call_at_every_moment<CCheckDetail>(
      [](auto& object, Arguments& a) { object.Update(a.key, a.part, a.names, a.values); });
  call_at_every_moment<CCheckDetail>([](auto& object, Arguments& a) { object.Delete(a.key, a.part); });
}

TEST(ChangedArgument, OfClosesIsNoMatter) {
  using close::CPartCostSet;
  using close::CStockClose;
  call_at_every_moment<CPartCostSet>(
      [](auto& object, Arguments& a) { object.Update(a.number, a.names, a.values, a.tag); });
  call_at_every_moment<CStockClose>(
      [](auto& object, Arguments& a) { object.Update("2024/03/31", a.names, a.values, a.tag); });
  call_at_every_moment<CStockClose>(
      [](auto& object, Arguments& a) { object.Insert("2024/03/31", a.names, a.values); });
  call_at_every_moment<CStockClose>(
      [](auto& object, Arguments& a) { object.STKMonthCloseDept(a.key, a.tag, a.part); });
  call_at_every_moment<CStockClose>([](auto& object, Arguments& a) { object.STKMonthClose(a.key, a.tag); });
}

TEST(ChangedArgument, OfDocumentsIsNoMatter) {
  using transactions::CTranHead;
  call_at_every_moment<CTranHead>(
      [](auto& object, Arguments& a) { object.Read(a.key, a.type, a.names, a.values); });
  call_at_every_moment<CTranHead>(
      [](auto& object, Arguments& a) { object.Update(a.key, a.type, a.names, a.values, a.tag); });
  call_at_every_moment<CTranHead>(
      [](auto& object, Arguments& a) { object.Insert(a.key, a.type, a.names, a.values, a.part); });
  call_at_every_moment<CTranHead>([](auto& object, Arguments& a) { object.Delete(a.key, a.type); });
}

TEST(ChangedArgument, OfLinesIsNoMatter) {
  using transactions::CTranDetail;
  call_at_every_moment<CTranDetail>(
      [](auto& object, Arguments& a) { object.Read(a.key, a.tag, a.part, a.names, a.values, a.number); });
  call_at_every_moment<CTranDetail>([](auto& object, Arguments& a) {
    object.Update(a.key, a.type, a.tag, a.part, a.names, a.values, a.number);
  });
  call_at_every_moment<CTranDetail>([](auto& object, Arguments& a) {
    object.Insert(a.key, a.type, a.tag, a.part, a.names, a.values, a.number);
  });
  call_at_every_moment<CTranDetail>(
      [](auto& object, Arguments& a) { object.Delete(a.key, a.type, a.tag, a.part, a.number); });
  call_at_every_moment<CTranDetail>([](auto& object, Arguments& a) {
    object.InsertRTN(a.key, a.short_number, a.names, a.values, a.short_number);
  });
  call_at_every_moment<CTranDetail>(
      [](auto& object, Arguments& a) { object.UpdateRTN(a.key, a.short_number, a.names, a.values); });
  call_at_every_moment<CTranDetail>([](auto& object, Arguments& a) {
    object.PORefQty(a.key, a.number, a.quantity, a.quantity, a.quantity, a.type);
  });
  call_at_every_moment<CTranDetail>(
      [](auto& object, Arguments& a) { object.GetMRPQty(a.key, a.part, a.type); });
  call_at_every_moment<CTranDetail>(
      [](auto& object, Arguments& a) { object.IssuedOrRtnQty(a.key, a.tag, a.part, a.type, a.type); });
}

}  // namespace
}  // namespace tallyra
