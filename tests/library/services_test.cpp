// How host services are found and called, and what becomes of a call to a service that the host lacks.
#include "plugin/services.hpp"

#include "bridge/strings.hpp"
#include "host/runtime/runtime.hpp"
#include "plugin/exceptions.hpp"
#include "plugin/wrappers.hpp"
#include "tests/library/offered_services.hpp"

namespace {

using namespace plugin;

class Services : public frame_test::OfferedServices {};

template <class Accessor, class... Arguments>
auto callWithEmptyArguments(const Accessor& accessor, const Service<void(Arguments...)>*) {
  accessor(Arguments()...);
  return 0;
}
template <class Accessor, class Result, class... Arguments>
auto callWithEmptyArguments(const Accessor& accessor, const Service<Result(Arguments...)>*) {
  return accessor(Arguments()...);
}

TEST_F(Services, EachMissingOneYieldsTheEmptyValueAndIsAskedForAgain) {
#define CALL(accessor, cell, lookup, ...)                                \
  for (int call = 1; call <= 2; ++call) {                                \
    EXPECT_FALSE(callWithEmptyArguments(accessor, &accessor)) << lookup; \
    EXPECT_EQ(cell, nullptr) << lookup;                                  \
    EXPECT_GE(lookups(lookup), call) << lookup;                          \
  }
  PLUGIN_HOST_SERVICES(CALL)
#undef CALL
#define GET(accessor, cell, lookup, Element) EXPECT_EQ(accessor(nullptr, 3), Element()) << lookup;
  PLUGIN_ARRAY_GETTERS(GET)
#undef GET
}

TEST_F(Services, EachIsOfferedByTheStandInHostUnderItsName) {
#define FIND(accessor, cell, lookup, ...) EXPECT_NE(host::Runtime::resolve(lookup), nullptr) << lookup;
  PLUGIN_HOST_SERVICES(FIND)
  PLUGIN_ARRAY_GETTERS(FIND)
#undef FIND
}

TEST_F(Services, WithNoneAtAllEveryConversionYieldsNil) {
  const AutoreleasePool pool;
  NSString* const text = __CFStringMakeConstantString("text");
  NSData* const data = NSData::dataWithBytes(classOf<NSData>(), "data", 4);
  for (const double version : {0.0, 2012.0, 2019.01}) {
    hostVersion = version;
    EXPECT_EQ(bridge::CFString2RBString(text), nullptr);
    for (const CFStringEncoding encoding : {0U, 0x100U, 0x500U, 0x600U, 0xFFFFU, 0x08000100U, 0x0C000100U}) {
      EXPECT_EQ(bridge::REALBuildUnicodeString("text", 4, encoding), nullptr) << encoding;
    }
    EXPECT_EQ(bridge::NSDataRB(data), nullptr);
    EXPECT_EQ(bridge::NewNSData(reinterpret_cast<REALmemoryBlock>(data)), nullptr);
    EXPECT_EQ(wrapRegistered(text, "NSStringZKT"), nullptr);
    EXPECT_EQ(NewNSObjectZKT(text, classOf<NSString>()), nullptr);
    RaiseException("NilObjectException", "lost");
    RaiseOutOfBoundsException(1, 1);
  }
}

double someVersion() { return 2015.2; }

TEST_F(Services, OneThatAppearsLateIsUsedAndThenNoLongerLookedUp) {
  EXPECT_EQ(REALGetRBVersion(), 0.0);
  offer("REALGetRBVersion", someVersion);
  for (int call = 0; call < 3; ++call) EXPECT_EQ(REALGetRBVersion(), 2015.2);
  EXPECT_EQ(lookups("REALGetRBVersion"), 2);
}

TEST_F(Services, BeforeTheEntryPointRanEverythingIsMissing) {
  gResolver = nullptr;
  EXPECT_EQ(REALnewInstance("Dictionary"), nullptr);
}

CFStringRef noText(REALstring, bool) { return nullptr; }

TEST_F(Services, TheTwoRoutesToAPlatformStringHaveCellsOfTheirOwn) {
  offer("REALGetStringCFString", noText);
  REALCopyStringCFString(nullptr, false);
  EXPECT_EQ(pGetStringCFString, nullptr);
  REALGetStringCFString(nullptr, false);
  EXPECT_EQ(lookups("REALGetStringCFString"), 2);
}

char someText[] = "four";
const char* textBytes(REALstring) { return someText; }
int64_t textLength(REALstring) { return 4; }
int64_t typeOfVariant(REALobject) { return 37; }
const void* askedModule = &someText;
void* loadGlobalMethod(void* module, const char* declaration) {
  askedModule = module;
  const std::string asked = declaration;
  if (asked == "LenB( s as string ) as integer") return reinterpret_cast<void*>(&textLength);
  return asked == "VarType(value As Variant) As Integer" ? reinterpret_cast<void*>(&typeOfVariant) : nullptr;
}

TEST_F(Services, AStringsContentsNeedBothOfTheirSources) {
  EXPECT_EQ(REALGetStringContents(nullptr).length, 0);
  offer("StringGetCString", textBytes);
  EXPECT_EQ(REALGetStringContents(nullptr).length, 0);
  offer("REALLoadGlobalMethod", loadGlobalMethod);
  EXPECT_EQ(REALGetStringContents(nullptr).length, 4);
  EXPECT_EQ(REALGetStringContents(nullptr).bytes, someText);
  EXPECT_EQ(askedModule, nullptr);
  EXPECT_EQ(REALLoadFrameworkMethod("Unknown()"), nullptr);
}

bool readInteger(REALobject, const char* name, int64_t* value) {
  *value = std::string(name) == "Type" ? 8 : 1234567890123;
  return true;
}
bool readDouble(REALobject, const char* name, double* value) {
  *value = 2.5;
  return std::string(name) == "DoubleValue";
}
bool failToRead(REALobject, const char*, float* value) {
  *value = 7.0F;
  return false;
}

TEST_F(Services, AVariantIsReadThroughItsPropertiesWhereTheReaderIsMissing) {
  EXPECT_EQ(GetVariantType(nullptr), 0);
  EXPECT_EQ(GetVariantString(nullptr), nullptr);
  offer("REALGetPropValueInteger", readInteger);
  offer("REALGetPropValueInt64", readInteger);
  offer("REALGetPropValueDouble", readDouble);
  offer("REALGetPropValueSingle", failToRead);
  EXPECT_EQ(GetVariantType(nullptr), 8);
  EXPECT_EQ(GetVariantInt64(nullptr), 1234567890123);
  EXPECT_EQ(GetVariantDouble(nullptr), 2.5);
  EXPECT_EQ(GetVariantSingle(nullptr), 0.0F) << "a property that cannot be read gives 0";
  offer("REALLoadGlobalMethod", loadGlobalMethod);
  EXPECT_EQ(GetVariantType(nullptr), 37);
}

}  // namespace
