// The services as plug-ins call them, and faults on purpose.
#include <cstring>

#include "host/runtime/array.hpp"
#include "host/runtime/date.hpp"
#include "host/runtime/dictionary.hpp"
#include "host/runtime/memory_block.hpp"
#include "host/runtime/service.hpp"
#include "host/runtime/variant.hpp"
#include "platform/corefoundation.h"
#include "platform/owned.h"
#include "tests/host/runtime_support.hpp"

namespace host_test {
namespace {

class ServicesTest : public RuntimeTest {
 protected:
  static void* method(HostObject* object, const char* declaration) {
    return service<void*(HostObject*, const char*)>("REALLoadObjectMethod")(object, declaration);
  }
};

// Every member that plug-ins are known to look up by declaration.
TEST_F(ServicesTest, MethodsAreFoundByDeclaration) {
  const struct {
    const char* className;
    const char* declaration;
    bool found;
  } cases[] = {
      {"MemoryBlock", "Operator_Convert() As Ptr", true},
      {"MemoryBlock", "Constructor(bytes as Integer)", true},
      {"FolderItem", "TrueItem(Index as integer) as Folderitem", true},
      {"Date", "TrueItem(Index as integer) as Folderitem", false},
      {"Date",
       "Year as Integer, Month as Integer = 1, Day as Integer = 1, hour as Integer = 0, minute as Integer = 0, "
       "second as Integer = 0",
       true},
      {"Dictionary", "Value(key As Variant, Assigns _value As Variant)", true},
      {"Dictionary", "Value(key As Variant) As Variant", true},
      {"Dictionary", "Key(index As Integer) As Variant", true},
      {"Dictionary", "Key(index As Double) As Variant", false},
      {"Dictionary", "not a ( declaration", false},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(method(runtime.newInstance(each.className), each.declaration) != nullptr, each.found) << each.declaration;
  }
  const auto global = service<void*(void*, const char*)>("REALLoadGlobalMethod");
  EXPECT_NE(global(nullptr, "GetTrueFolderItem(path As String, pathMode As Integer) As FolderItem"), nullptr);
  EXPECT_EQ(global(nullptr, "Nothing as Integer"), nullptr);
  const HostOwned<HostString> text = HostString::make("naïve");
  const auto lengthInBytes = reinterpret_cast<int64_t (*)(HostString*)>(global(nullptr, "LenB( s as string ) as integer"));
  EXPECT_EQ(lengthInBytes(text), 6);
  EXPECT_EQ(lengthInBytes(nullptr), 0);
}

TEST_F(ServicesTest, PropertiesAreReadByNameAndKind) {
  const HostOwned<HostObject> date = makeDate({2014, 3, 5, 6, 7, 8}), block = makeMemoryBlock("1234");
  const HostOwned<HostObject> number = boxed(Value::number(2.5));
  int64_t integer = -1;
  const auto getInteger = service<bool(HostObject*, const char*, int64_t*)>("REALGetPropValueInteger");
  EXPECT_TRUE(getInteger(date, "month", &integer) && integer == 3);
  EXPECT_TRUE(getInteger(block, "Size", &integer) && integer == 4);
  EXPECT_TRUE(getInteger(number, "Type", &integer) && integer == 5);
  EXPECT_FALSE(getInteger(block, "Year", &integer));
  EXPECT_FALSE(getInteger(date, "SQLDate", &integer));
  EXPECT_FALSE(getInteger(nullptr, "Size", &integer));
  double fraction = 0;
  EXPECT_TRUE(service<bool(HostObject*, const char*, double*)>("REALGetPropValueDouble")(number, "DoubleValue", &fraction));
  EXPECT_EQ(fraction, 2.5);
  HostObject* object = nullptr;
  const auto getObject = service<bool(HostObject*, const char*, HostObject**)>("REALGetPropValueObject");
  EXPECT_FALSE(getObject(number, "DateValue", &object));
  ASSERT_TRUE(getObject(date, "DateValue", &object));
  EXPECT_EQ(adopt(object), date);
  EXPECT_TRUE(service<bool(HostObject*, const char*, int64_t)>("REALSetPropValueInteger")(date, "Day", 32));
  EXPECT_EQ(toUtf8(read(date, "SQLDate")), "2014-04-01");
  EXPECT_FALSE(service<bool(HostObject*, const char*, int64_t)>("REALSetPropValueInteger")(date, "DayOfYear", 1));
}

TEST_F(ServicesTest, ArrayElementsAreTheReceivers) {
  const HostOwned<HostObject> array =
      adopt(service<HostObject*(int32_t, int64_t)>("RuntimeArrayCreateSingleDimBoundedArray")(4, -1));
  const auto insert = service<void(HostObject*, int64_t, HostObject*)>("PluginObjectArrayInsertProc");
  const HostOwned<HostObject> text = boxed(Value::string("one")), date = makeDate({2000, 1, 1, 0, 0, 0});
  insert(array, 0, text);
  insert(array, 1, nullptr);
  insert(array, 2, date);
  EXPECT_EQ(service<int64_t(HostObject*)>("RuntimeUBound")(array), 2);
  EXPECT_EQ(date->references, 2);
  const auto getter = service<HostObject* (*(HostObject*))(HostObject*, int64_t)>("PluginObjectArrayGetProc")(array);
  const HostOwned<HostObject> first = adopt(getter(array, 0)), second = adopt(getter(array, 1)),
                              third = adopt(getter(array, 2));
  EXPECT_EQ(show(unboxed(first)), "String one");
  EXPECT_FALSE(second);
  EXPECT_EQ(third, date);
  EXPECT_EQ(date->references, 3);
  EXPECT_EQ(service<HostObject*(int32_t, int64_t)>("RuntimeArrayCreateSingleDimBoundedArray")(99, 0), nullptr);
}

template <class Result>
Result elementOf(const char* getterService, HostObject* array, int64_t index) {
  return service<Result (*(HostObject*))(HostObject*, int64_t)>(getterService)(array)(array, index);
}

TEST_F(ServicesTest, ArraysOfEveryKindHaveAGetter) {
  const auto arrayOf = [](const char* type) {
    HostOwned<HostObject> array = makeArray(typeNamed(type), 1);
    setElement(array, 1, Value::string("1"));
    return array;
  };
  EXPECT_EQ(elementOf<int64_t>("PluginIntegerArrayGetProc", arrayOf("Int32"), 1), 1);
  EXPECT_EQ(elementOf<int64_t>("PluginInt64ArrayGetProc", arrayOf("Integer"), 1), 1);
  EXPECT_EQ(elementOf<float>("PluginSingleArrayGetProc", arrayOf("Single"), 1), 1);
  EXPECT_EQ(elementOf<double>("PluginDoubleArrayGetProc", arrayOf("Double"), 1), 1);
  EXPECT_TRUE(elementOf<bool>("PluginBooleanArrayGetProc", arrayOf("Boolean"), 1));
  const HostOwned<HostObject> strings = arrayOf("String"), texts = arrayOf("Text");
  EXPECT_EQ(bytesOf(adopt(elementOf<HostString*>("PluginStringArrayGetProc", strings, 1))), "1");
  EXPECT_EQ(elementOf<HostString*>("PluginStringArrayGetProc", strings, 0), nullptr);
  EXPECT_EQ(bytesOf(adopt(elementOf<HostText*>("PluginTextArrayGetProc", texts, 1))), "1");
  EXPECT_EQ(thrownBy([&] { elementOf<HostText*>("PluginTextArrayGetProc", texts, 2); }),
            "OutOfBoundsException: Index 2 is not in 0 to 1.");
  const HostOwned<HostObject> block = makeMemoryBlock("x");
  EXPECT_EQ(service<void*(HostObject*)>("PluginObjectArrayGetProc")(block), nullptr);
  EXPECT_EQ(service<int64_t(HostObject*)>("RuntimeUBound")(block), -1);
}

TEST_F(ServicesTest, MemoryBlocksAreMadeAndMeasured) {
  const auto make = service<HostObject*(int32_t)>("newMemoryBlock");
  const auto address = service<void*(HostObject*)>("memoryBlockGetPtr");
  const auto size = service<int64_t(HostObject*)>("memoryBlockGetSize");
  EXPECT_EQ(make(-1), nullptr);
  const HostOwned<HostObject> block = adopt(make(5)), date = makeDate({2000, 1, 1, 0, 0, 0});
  EXPECT_EQ(size(block), 5);
  std::memcpy(address(block), "hello", 5);
  const auto convert = reinterpret_cast<void* (*)(HostObject*)>(method(block, "Operator_Convert() As Ptr"));
  EXPECT_EQ(convert(block), address(block));
  EXPECT_EQ(toUtf8(call(block, "StringValue", {Value::integer(0), Value::integer(5)})), "hello");
  EXPECT_EQ(address(date), nullptr);
  EXPECT_EQ(size(nullptr), 0);
}

TEST_F(ServicesTest, TextsTravelAsVariantsAndPlatformStrings) {
  const AutoreleasePool pool;
  const HostOwned<HostText> text = HostText::make("d\xC3\xA9j\xC3\xA0");
  const HostOwned<HostObject> variant = adopt(service<HostObject*(HostText*)>("PluginNewVariantText")(text));
  EXPECT_EQ(show(unboxed(variant)), "Text d\xC3\xA9j\xC3\xA0");
  EXPECT_EQ(text->references, 2);
  const Owned<NSString> copy = adopt(service<CFStringRef(HostText*)>("PluginCopyTextCFString")(text));
  EXPECT_EQ(NSString::length(copy), 4U);
}

TEST_F(ServicesTest, WhatIsAliveIsCountedAndDescribed) {
  const LiveCounts before = runtime.live();
  const HostOwned<HostObject> date = makeDate({2000, 1, 1, 0, 0, 0}), again = date;
  const HostOwned<HostString> string = HostString::make(std::string(70, 'x'));
  EXPECT_EQ(runtime.live(), (LiveCounts{before.objects + 1, before.strings + 1, before.texts}));
  const std::string described = runtime.describeLive(1'000'000);
  EXPECT_NE(described.find("Date #" + std::to_string(date->serial) + ", 2 references\n"), std::string::npos);
  EXPECT_NE(described.find("string \"" + std::string(60, 'x') + "...\", 1 reference\n"), std::string::npos);
}

TEST_F(ServicesTest, ExceptionsCarryMessageAndNumber) {
  for (const char* name : {"OutOfBoundsException", "OutOfMemoryException", "IllegalCastException", "NilObjectException",
                           "TypeMismatchException", "KeyNotFoundException", "IOException", "StackOverflowException"}) {
    const HostOwned<HostObject> exception = runtime.newInstance(name);
    ASSERT_TRUE(isA(exception, runtime.findClass("RuntimeException"))) << name;
    const HostOwned<HostString> message = HostString::make("why");
    service<bool(HostObject*, const char*, HostString*)>("REALSetPropValueString")(exception, "Message", message);
    service<bool(HostObject*, const char*, int64_t)>("REALSetPropValueInteger")(exception, "ErrorNumber", 12);
    EXPECT_EQ(HostException(exception).message(), "why");
    EXPECT_EQ(HostException(exception).errorNumber(), 12);
    service<bool(HostObject*, const char*, HostString*)>("REALSetPropValueString")(exception, "Message", nullptr);
    EXPECT_EQ(HostException(exception).message(), "");
  }
  EXPECT_EQ(makeException("Date", "no exception class")->type->name(), "RuntimeException");
}

TEST_F(ServicesTest, StringsBecomePlatformStrings) {
  const struct {
    std::string bytes;
    uint32_t encoding;
    const char* text;
  } cases[] = {
      {"plain", encodingASCII, "plain"},
      {"na\xC3\xAFve", encodingUTF8, "na\xC3\xAFve"},
      {"na\x95ve", encodingMacRoman, "na\xC3\xAFve"},
      {std::string("\x3D\xD8\x00\xDE", 4), encodingUTF16, "\xF0\x9F\x98\x80"},
  };
  const AutoreleasePool pool;
  for (const auto& each : cases) {
    const HostOwned<HostString> string = HostString::make(each.bytes, each.encoding);
    const Owned<NSString> copy = adopt(service<CFStringRef(HostString*, bool)>("REALGetStringCFString")(string, false));
    ASSERT_TRUE(copy) << each.text;
    EXPECT_STREQ(NSString::UTF8String(copy), each.text);
  }
  EXPECT_EQ(service<HostString*(const void*, int32_t)>("REALBuildString")("x", -1), nullptr);
  const HostOwned<HostString> raw = adopt(service<HostString*(const void*, int32_t)>("REALBuildString")("\0x", 2));
  EXPECT_EQ(raw->bytes(), std::string_view("\0x", 2));
  EXPECT_EQ(service<uint32_t(HostString*)>("REALGetStringEncoding")(raw), encodingUnknown);
}

void throwsOutOfMemory(void* block) {
  const auto construct = reinterpret_cast<void (*)(HostObject*, int64_t)>(service<void*(HostObject*, const char*)>(
      "REALLoadObjectMethod")(static_cast<HostObject*>(block), "Constructor(bytes as Integer)"));
  construct(static_cast<HostObject*>(block), -1);
}
void raisesBadCast(void*) {
  const HostOwned<HostObject> exception = makeException("IllegalCastException", "");
  service<void(HostObject*)>("RuntimeRaiseException")(exception);
}

TEST_F(ServicesTest, TheExceptionHandlerHandsOverWhatWasThrown) {
  const auto handle = service<HostObject*(void (*)(void*), void*)>("PluginCallFunctionWithExceptionHandler");
  const HostOwned<HostObject> block = makeMemoryBlock("x"), earlier = makeException("IOException", "earlier");
  runtime.raise(earlier);
  EXPECT_EQ(adopt(handle(throwsOutOfMemory, block))->type->name(), "OutOfMemoryException");
  EXPECT_EQ(adopt(handle(raisesBadCast, nullptr))->type->name(), "IllegalCastException");
  EXPECT_EQ(handle([](void*) {}, nullptr), nullptr);
  EXPECT_EQ(runtime.takePendingException(), earlier);
}

TEST_F(ServicesTest, FaultsHideDelayAndStopServices) {
  Faults& faults = runtime.faults();
  faults.missingUntil("REALLockObject", 3);
  EXPECT_EQ(Runtime::resolve("REALLockObject"), nullptr);
  EXPECT_EQ(Runtime::resolve("REALLockObject"), nullptr);
  EXPECT_NE(Runtime::resolve("REALLockObject"), nullptr);
  EXPECT_EQ(faults.lookups("REALLockObject"), 3);

  faults.switchOff("Key(index As Integer) As Variant");
  const HostOwned<HostObject> dictionary = makeDictionary();
  EXPECT_EQ(method(dictionary, "Key(index As Integer) As Variant"), nullptr);

  faults.failFromCall("newMemoryBlock", 2);
  const auto make = service<HostObject*(int32_t)>("newMemoryBlock");
  EXPECT_TRUE(adopt(make(4)));
  EXPECT_FALSE(adopt(make(4)));
  EXPECT_EQ(faults.calls("newMemoryBlock"), 2);

  faults.switchOffAll(true);
  for (const Service& each : services()) EXPECT_EQ(Runtime::resolve(each.name), nullptr) << each.name;
  faults.clear();
  for (const Service& each : services()) EXPECT_NE(Runtime::resolve(each.name), nullptr) << each.name;
  EXPECT_TRUE(adopt(make(4)));

  runtime.setVersion(std::nullopt);
  EXPECT_EQ(Runtime::resolve("REALGetRBVersion"), nullptr);
  runtime.setVersion(2013.04);
  EXPECT_EQ(service<double()>("REALGetRBVersion")(), 2013.04);
  runtime.setVersion(2019.01);
}

}  // namespace
}  // namespace host_test
