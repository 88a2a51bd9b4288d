#include "tests/support/watched_calls.h"

#include <deque>
#include <map>
#include <set>
#include <vector>

#include "automation/convert.h"
#include "frame/collaborators.h"

namespace tallyra::behaviour {
namespace {

using automation::Access;
using automation::Argument;
using automation::Arguments;
using automation::Dispatch;
using automation::MemberId;
using automation::Object;
using automation::Value;

const std::set<std::string, std::less<>> watched_members{
    "Open",       "Execute",       "BeginTrans",  "CommitTrans",   "RollbackTrans", "Close",
    "PowerCheck", "GetTableKeyID", "GetPartCost", "GetLastUprice", "GetAvgUprice",  "GetInsertSQL",
};

// One object under watch. It is handed to other objects as what it stands for.
class Watched : public Dispatch {
 public:
  Watched(std::string name, Object real, const WatchedCalls::AtCall& at_call)
      : name_(std::move(name)), real_(std::move(real)), at_call_(at_call) {}

  MemberId resolve(std::string_view name) override {
    const MemberId member = real_.resolve(name);
    if (watched_members.contains(name)) members_[member] = name;
    return member;
  }

  Value invoke(MemberId member, Access access, Arguments arguments) override {
    const Object alive(this);
    std::deque<Value> plain;
    std::vector<Argument> passed;
    for (const Argument& argument : arguments) {
      const auto* object = argument.get().get_if<Object>();
      const auto* watched = object ? dynamic_cast<Watched*>(object->dispatch()) : nullptr;
      passed.push_back(watched ? Argument(plain.emplace_back(watched->real_)) : argument);
    }
    Value result;
    const auto run = [&] { result = real_.invoke(member, access, passed); };
    const auto name = members_.find(member);
    if (name == members_.end())
      run();
    else
      at_call_(told(name->second, arguments), run);
    return result;
  }

 private:
  std::string told(const std::string& member, Arguments arguments) const {
    std::string text = name_ + "." + member;
    const bool statement = member == "Execute" || (member == "Open" && name_ == "Recordset");
    return statement ? text + " " + automation::to_text(arguments[0].get()) : text;
  }

  std::string name_;
  Object real_;
  const WatchedCalls::AtCall& at_call_;
  std::map<MemberId, std::string> members_;
};

automation::local::Factory watching(const char* prog_id, const char* name,
                                    const WatchedCalls::AtCall& at_call, const bool& handling) {
  return [real = automation::local::find_factory(prog_id), name, &at_call, &handling] {
    return handling ? real() : automation::make_object<Watched>(name, real(), at_call);
  };
}

// Sets a flag for a scope.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag), before_(flag) { flag = true; }
  ~Raised() { flag_ = before_; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& flag_;
  bool before_;
};

}  // namespace

WatchedCalls::WatchedCalls(AtCall at_call)
    : at_call_([this, hook = std::move(at_call)](const std::string& call, const std::function<void()>& run) {
        const Raised handling(handling_);
        hook(call, run);
      }),
      connections_("ADODB.Connection", watching("ADODB.Connection", "Connection", at_call_, handling_)),
      recordsets_("ADODB.Recordset", watching("ADODB.Recordset", "Recordset", at_call_, handling_)),
      rights_("Corvane.CPowerCheck", watching("Corvane.CPowerCheck", "Rights", at_call_, handling_)),
      system_("Corvane.CSystem", watching("Corvane.CSystem", "System", at_call_, handling_)) {}

WatchedCalls::~WatchedCalls() {
  frame::collaborators() = {};
}

}  // namespace tallyra::behaviour
