// Calling members of host classes as a host program does: by declaration, with host values, between real stand-ins.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "host/runtime/runtime.hpp"
#include "platform/appkit.h"
#include "platform/owned.h"

namespace calls {

using host::Value;
using Arguments = std::vector<Value>;

// A new instance; its constructor ran, no "Constructor" method did.
Value make(std::string_view className);
// A new object of a structure class, its instance data the two words.
template <class Word>
Value structure(std::string_view className, Word first, Word second) {
  Value made = make(className);
  made.asObject()->word<Word>(0) = first;
  made.asObject()->word<Word>(1) = second;
  return made;
}
inline Value range(uint64_t location, uint64_t length) { return structure("NSRangeZKT", location, length); }
Value bytes(std::string_view contents);

// The member of exactly that declaration. Arguments by reference are replaced by what they got. Throws host::HostException.
Value call(const Value& object, const char* declaration, Arguments&& arguments = {});
Value call(const Value& object, const char* declaration, Arguments& arguments);
Value callShared(const char* className, std::string_view declaration, Arguments&& arguments = {});
Value callShared(const char* className, std::string_view declaration, Arguments& arguments);
Value get(const Value& object, std::string_view property);
void set(const Value& object, std::string_view property, const Value& value);

// A styled text: an instance of the class, made of the plain text.
Value text(std::string_view plain, std::string_view className = "NSAttributedStringZKT");
// A styled text made of the library's HTML dialect.
Value html(std::string_view source, std::string_view className = "NSAttributedStringZKT");
std::string textOf(const Value& object);
std::string htmlOf(const Value& object);
// The text of a String, "" for none.
std::string utf8(const Value& string);
// "2+3"; "none" for nil.
std::string describeRange(const Value& range);

// The wrapped object.
NSObject* handleOf(const Value& object);
// "" for nil.
std::string classNameOf(const Value& object);

// What the call raises: "ClassName: message", or "" when it raises nothing.
template <class Call>
std::string raisedBy(Call&& call) {
  try {
    call();
  } catch (const host::HostException& exception) {
    return exception.className() + ": " + exception.message();
  }
  return "";
}

// Starts siblings and library, once, and holds every test to giving back what it took. Skips in a run of all of the
// executable's tests in one process: the siblings' classes are for good, and other suites register their own in their place.
class MemberTest : public testing::Test {
 protected:
  static void SetUpTestSuite();
  void SetUp() override;
  void TearDown() override;

 private:
  host::LiveCounts before_{};
};

}  // namespace calls
