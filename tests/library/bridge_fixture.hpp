// What the tests of the conversions share: a real host with wrapper classes for every row, values on both sides, and a
// readable text for any of them.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "host/runtime/runtime.hpp"
#include "platform/corefoundation.h"
#include "platform/guard.h"
#include "platform/owned.h"
#include "plugin/host_owned.hpp"

namespace bridge_test {

using HostHeld = host::HostOwned<host::HostObject>;
using Variant = plugin::HostOwned<plugin::REALobjectStruct>;

inline plugin::REALobject forLibrary(host::HostObject* object) { return reinterpret_cast<plugin::REALobject>(object); }
inline host::HostObject* forHost(plugin::REALobject object) { return reinterpret_cast<host::HostObject*>(object); }

// "nil", "Integer 5", "String a", "[Integer 1, nil]", "{String a: Integer 1}", "Date 2014-3-5 6:7:8", "MemoryBlock abc",
// "FolderItem /tmp", or the name of the class.
std::string show(host::HostObject* variant);
inline std::string show(plugin::REALobject variant) { return show(forHost(variant)); }

// "nil", "null", "i 5", "'a'", "[i 1, null]", "{'a': i 1}" with keys in alphabetical order, "<abc>", "file:///tmp", or the
// class name.
std::string show(NSObject* object);

NSString* text(const char* utf8);
NSArray* arrayOf(std::vector<NSObject*> elements);
NSDictionary* dictionaryOf(std::vector<std::pair<NSObject*, NSObject*>> entries);

// An instance of the named platform class as far as anyone can ask: its class, and whether it is of a class.
Owned<NSObject> pretendInstance(const char* className);

// Whether the code ended in a platform exception; its name and reason, or "".
template <class Body>
std::string exceptionOf(Body&& body) {
  NSException* const exception = catchException(body);
  if (exception == nullptr) return "";
  return std::string(NSString::UTF8String(NSException::name(exception))) + ": " +
         NSString::UTF8String(NSException::reason(exception));
}

// The host's own service, for what stands in front of it.
template <class Signature>
Signature* hostService(const char* name) {
  return reinterpret_cast<Signature*>(host::Runtime::resolve(name));
}

// The message of the host exception that was raised since the last call, with its class; or "".
std::string raisedException();

// Takes back what a library that could not unlock left with the host.
void dropEverythingSince(const host::LiveCounts& before);

// Each test begins with no service looked up, no fault and no registry, and ends with every host value given back.
class BridgeTest : public testing::Test {
 protected:
  BridgeTest();
  ~BridgeTest() override;

  static host::Runtime& runtime() { return host::Runtime::shared(); }
  // The host lacks the service, or the method of that declaration, until `allOn` or the end of the test.
  static void switchOff(const char* name);
  static void allOn();
  // Makes the library look up every service anew.
  static void forgetServices();
  // The library finds this function in place of the host's service until the test ends.
  static void intercept(const char* service, void* function);
  // From now on wrappers are found again by what they wrap.
  void useRegistry();

 private:
  std::optional<AutoreleasePool> pool_;
  std::optional<host::LiveCounts> before_;
  Owned<NSMutableDictionary> registry_;
};

}  // namespace bridge_test
