// A host program's small session on hosts that lack a service, or all of them: what needs it comes out empty or short, the
// rest is as ever, and no reference is lost or dropped twice.
#include <algorithm>
#include <functional>
#include <map>

#include "host/runtime/dictionary.hpp"
#include "host/runtime/memory_block.hpp"
#include "host/runtime/service.hpp"
#include "html/state.hpp"
#include "tests/library/bridge_fixture.hpp"
#include "tests/library/member_calls.hpp"

namespace {

using calls::Value;

class MissingServices : public bridge_test::BridgeTest {
 protected:
  // The HTML writer keeps the attributes that it wrote last, and a stack.
  ~MissingServices() override {
    html::hold(html::cachedAttributes, Owned<NSDictionary>());
    html::hold(html::fontDirectiveStack, Owned<NSMutableArray>());
  }
};

Value tagged(std::string_view bytes, uint32_t encoding) { return Value::string(host::HostString::make(bytes, encoding)); }

// The text of what a step gives, "" for nil and for a step that raises.
std::string resultOf(const std::function<Value()>& step) {
  try {
    const Value result = step();
    if (result.isString()) return calls::utf8(result);
    if (result.kind() == host::Kind::Boolean) return result.asBoolean() ? "yes" : "";
    if (result.isInteger()) return result.asInteger() == 0 ? "" : std::to_string(result.asInteger());
    return result.isNil() ? "" : bridge_test::show(result.asObject());
  } catch (const host::HostException&) {
    return "";
  }
}

// The step of the session that gives nothing.
constexpr std::size_t appending = 7;

// What a program does with two attributed strings, one of them changeable.
std::vector<std::string> session() {
  const Value plain = calls::make("NSAttributedStringZKT");
  const Value changeable = calls::make("NSMutableAttributedStringZKT");
  const Value attributes = Value::object(host::makeDictionary());
  host::setDictionaryValue(attributes.asObject(), Value::string("NSKern"), Value::integer(7));
  Value data;
  const std::function<Value()> steps[] = {
      [&] { return calls::call(plain, "initWithString(text as string) as boolean", {tagged("caf\x8E", 0xFFFF)}); },
      [&] { return calls::get(plain, "Text"); },
      [&] { return calls::call(plain, "htmlString as string"); },
      [&] {
        return calls::call(changeable, "initWithString(text as string, withAttributes as Dictionary) as boolean",
                           {Value::string("\u00E9t\u00E9"), attributes});
      },
      [&] { return calls::get(changeable, "Text"); },
      [&] { return calls::call(changeable, "attributesAtIndex(location as UInt64) as dictionary", {Value::integer(1)}); },
      [&] {
        return calls::call(changeable, "attributeAtIndex(name as string, location as UInt64) as variant",
                           {Value::string("NSKern"), Value::integer(0)});
      },
      [&] { return calls::call(changeable, "appendAttributedString(attrString as NSAttributedStringZKT)", {plain}); },
      [&] { return calls::get(changeable, "Length"); },
      [&] { return data = calls::call(plain, "rtf as memoryblock"); },
      [&] { return calls::call(changeable, "initWithRTF(data as memoryblock) as boolean", {data}); },
      [&] { return calls::get(changeable, "Text"); },
      [&] { return calls::call(plain, "mutableCopy as NSMutableAttributedStringZKT"); },
      [&] { return calls::callShared("NSAttributedStringZKT", "NSFontAttributeName as string"); },
  };
  std::vector<std::string> results;
  std::transform(std::begin(steps), std::end(steps), std::back_inserter(results), resultOf);
  return results;
}

// "1 3" when the second and the fourth step gave something else.
std::string differences(const std::vector<std::string>& results, const std::vector<std::string>& full) {
  std::string steps;
  for (std::size_t step = 0; step < full.size(); ++step) {
    if (results[step] != full[step]) steps += (steps.empty() ? "" : " ") + std::to_string(step);
  }
  return steps;
}

// The services, and the host's own methods by their declarations, without which steps give something else. The rest has
// other ways, or the session does not need it.
const std::map<std::string, std::string> losses = {
    {"LenB( s as string ) as integer", "1 2 8 9 11"},
    {"VarType(value As Variant) As Integer", ""},
    {"Operator_Convert() As Ptr", ""},
    {"Value(key As Variant) As Variant", "5 6"},
    {"Value(key As Variant, Assigns _value As Variant)", "5"},
    {"Key(index As Integer) As Variant", "3 4 5 6 8"},  // The host refuses to look up nil.
    {"PluginNewInstance", "5 12"},
    {"pluginObjectType", "8"},
    {"RuntimeObjectIsa", "8"},
    {"REALLoadObjectMethod", "5 6"},
    {"REALLoadGlobalMethod", "1 2 8 9 11"},
    {"REALGetPropValueInteger", "5 6"},
    {"StringToVariant", "5"},
    {"IntegerToVariant", "5 6"},
    {"REALBuildString", "1 2 4 5 11 13"},
    {"StringGetCString", "1 2 8 9 11"},
    {"newMemoryBlock", "9 10 11"},
};

TEST_F(MissingServices, CostWhatNeedsThemAndNothingElse) {
  const std::vector<std::string> full = session();
  for (std::size_t step = 0; step < full.size(); ++step) {
    ASSERT_EQ(full[step].empty(), step == appending) << "step " << step << ": " << full[step];
  }
  std::vector<std::string> names;
  for (const auto& [name, steps] : losses) {
    if (host::findService(name) == nullptr) names.push_back(name);
  }
  for (const host::Service& service : host::services()) names.push_back(service.name);
  const host::LiveCounts before = runtime().live();
  for (const std::string& name : names) {
    SCOPED_TRACE(name);
    switchOff(name.c_str());
    const auto lost = losses.find(name);
    EXPECT_EQ(differences(session(), full), lost == losses.end() ? "" : lost->second);
    if (name.find("Unlock") == std::string::npos) {
      EXPECT_EQ(runtime().live(), before) << runtime().describeLive();
    }
    allOn();
    bridge_test::dropEverythingSince(before);
    EXPECT_EQ(session(), full) << "once the service is there again";
    EXPECT_EQ(runtime().live(), before) << runtime().describeLive();
  }
}

TEST_F(MissingServices, AltogetherLeaveNothing) {
  const std::vector<std::string> full = session();
  runtime().faults().switchOffAll(true);
  forgetServices();
  EXPECT_EQ(differences(session(), full), "1 2 3 4 5 6 8 9 10 11 12 13") << "an object of no text can be made";
  allOn();
}

}  // namespace
