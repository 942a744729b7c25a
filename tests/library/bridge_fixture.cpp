// What the tests of the conversions share.
#include "tests/library/bridge_fixture.hpp"

#include <algorithm>
#include <deque>
#include <map>

#include "bridge/dictionary_access.hpp"
#include "bridge/folder_items.hpp"
#include "bridge/host_classes.hpp"
#include "bridge/memory.hpp"
#include "bridge/platform_classes.hpp"
#include "host/runtime/array.hpp"
#include "host/runtime/conversion.hpp"
#include "host/runtime/date.hpp"
#include "host/runtime/dictionary.hpp"
#include "host/runtime/folder_item.hpp"
#include "host/runtime/memory_block.hpp"
#include "host/runtime/record.hpp"
#include "host/runtime/variant.hpp"
#include "plugin/entry.hpp"
#include "plugin/wrappers.hpp"

namespace bridge_test {
namespace {

std::string show(const host::Value& value) {
  if (value.isNil()) return "nil";
  if (value.isObject()) return bridge_test::show(value.asObject());
  return std::string(host::typeName(value.kind())) + " " + host::toUtf8(value);
}

template <class Element>
std::string joined(int64_t count, Element element) {
  std::string all;
  for (int64_t index = 0; index < count; ++index) all += (index == 0 ? "" : ", ") + element(index);
  return all;
}

constexpr uint64_t coreTag = 0x52424346;

// As the wrapper classes of CoreFoundation objects do.
void constructCoreWrapper(host::HostObject* wrapper) { wrapper->word<uint64_t>(2) = coreTag; }
void constructWrapper(host::HostObject* wrapper) { plugin::constructWrapper(forLibrary(wrapper)); }
void destroyWrapper(host::HostObject* wrapper) { plugin::destroyWrapper(forLibrary(wrapper)); }

void defineClass(const std::string& name, uint64_t size, void (*construct)(host::HostObject*) = nullptr,
                 void (*destroy)(host::HostObject*) = nullptr) {
  if (host::Runtime::shared().findClass(name) != nullptr) return;
  static std::deque<std::string> names;
  static std::deque<host::ClassRecord> records;
  host::ClassRecord& record = records.emplace_back();
  record.name = names.emplace_back(name).c_str();
  record.instanceSize = size;
  record.constructor = construct;
  record.destructor = destroy;
  host::Runtime::shared().registerClass(record);
}

void defineClasses() {
  const auto define = [](const char* name) { defineClass(name, 16, constructWrapper, destroyWrapper); };
  for (const auto& row : bridge::wrappedClasses) define(row.name.hostClass());
  for (const auto& row : bridge::optionalClasses) define(row.name.hostClass());
  for (const char* name : bridge::wrapperClasses) define(name);
  for (const char* name : bridge::delegateClasses) define(name);
  const auto defineCore = [](const char* name) { defineClass(name, 32, constructCoreWrapper, destroyWrapper); };
  for (const char* name : bridge::coreClasses) defineCore(name);
#define DEFINE_CORE_CLASS(type) defineCore(#type "ZKT");
  PLATFORM_TYPE_IDENTIFIERS(DEFINE_CORE_CLASS)
#undef DEFINE_CORE_CLASS
  defineCore("CFBinaryDataZKT");
  for (const char* name : {"NSRectZKT", "NSSizeZKT", "NSPointZKT", "NSRangeZKT", "QTKitTimeZKT", "QTKitTimeRangeZKT",
                           "CMTimeMappingZKT", "CMTimeRangeZKT", "CMTimeZKT", "StrangerZKT"}) {
    defineClass(name, 32);
  }
}

// The class that pretended instances of each pretending class belong to.
std::map<Class, Class>& pretended() {
  static std::map<Class, Class> classes;
  return classes;
}
Class pretendedClass(NSObject* self, SEL) { return pretended()[object_getClass(self)]; }
BOOL isKindOfPretendedClass(NSObject* self, SEL selector, Class asked) {
  for (Class cls = pretendedClass(self, selector); cls != nullptr; cls = class_getSuperclass(cls)) {
    if (cls == asked) return YES;
  }
  return NO;
}

Class pretendingClass(const std::string& className) {
  const std::string name = "Pretended" + className;
  if (const Class known = objc_getClass(name.c_str())) return known;
  const Class made = objc_allocateClassPair(objc_getClass("NSObject"), name.c_str(), 0);
  class_addMethod(made, NSObject::class_.selector(), reinterpret_cast<IMP>(&pretendedClass), "#@:");
  class_addMethod(made, NSObject::isKindOfClass.selector(), reinterpret_cast<IMP>(&isKindOfPretendedClass), "c@:#");
  objc_registerClassPair(made);
  pretended()[made] = objc_getClass(className.c_str());
  return made;
}

std::map<std::string, void*>& interceptions() {
  static std::map<std::string, void*> functions;
  return functions;
}
void* resolve(const char* name) {
  const auto found = interceptions().find(name);
  return found != interceptions().end() ? found->second : host::Runtime::resolve(name);
}

// The classes that the library looks for by name, which no framework here declares.
void defineOptionalPlatformClasses() {
  for (const auto& row : bridge::optionalClasses) {
    const char* const name = row.name.platformClass();
    if (objc_getClass(name) == nullptr) objc_registerClassPair(objc_allocateClassPair(objc_getClass("NSObject"), name, 0));
  }
}

}  // namespace

std::string show(host::HostObject* variant) {
  if (variant == nullptr) return "nil";
  if (host::isBoxed(variant)) return show(host::unboxed(variant));
  if (host::isArray(variant)) {
    return "[" + joined(host::upperBound(variant) + 1, [&](int64_t index) { return show(host::element(variant, index)); }) +
           "]";
  }
  if (host::isDictionary(variant)) {
    return "{" +
           joined(host::dictionaryCount(variant),
                  [&](int64_t index) {
                    const host::Value key = host::dictionaryKey(variant, index);
                    return show(key) + ": " + show(host::dictionaryValue(variant, key));
                  }) +
           "}";
  }
  if (host::isDate(variant)) {
    const auto [year, month, day, hour, minute, second] = host::componentsOf(variant);
    return "Date " + std::to_string(year) + "-" + std::to_string(month) + "-" + std::to_string(day) + " " +
           std::to_string(hour) + ":" + std::to_string(minute) + ":" + std::to_string(second);
  }
  if (host::isMemoryBlock(variant)) {
    const auto bytes = host::memoryOf(variant);
    return "MemoryBlock " + std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  }
  if (host::isFolderItem(variant)) return "FolderItem " + host::pathOf(variant);
  return variant->type->name();
}

std::string show(NSObject* object) {
  const auto is = [object](const char* name) { return NSObject::isKindOfClass(object, objc_getClass(name)) != NO; };
  const auto utf8 = [](NSObject* string) { return std::string(NSString::UTF8String(string)); };
  if (object == nullptr) return "nil";
  if (is("NSNull")) return "null";
  if (is("NSString")) return "'" + utf8(object) + "'";
  if (is("NSNumber")) return std::string(NSValue::objCType(object)) + " " + utf8(NSObject::description(object));
  if (is("NSURL")) return utf8(NSURL::absoluteString(object));
  if (is("NSData")) {
    return "<" + std::string(static_cast<const char*>(NSData::bytes(object)), NSData::length(object)) + ">";
  }
  if (is("NSArray")) {
    return "[" +
           joined(static_cast<int64_t>(NSArray::count(object)),
                  [&](int64_t index) { return show(NSArray::objectAtIndex(object, static_cast<NSUInteger>(index))); }) +
           "]";
  }
  if (is("NSDictionary")) {
    NSArray* const keys = NSDictionary::allKeys(object);
    std::vector<std::string> entries;
    for (NSUInteger index = 0; index < NSArray::count(keys); ++index) {
      NSObject* const key = NSArray::objectAtIndex(keys, index);
      entries.push_back(show(key) + ": " + show(NSDictionary::objectForKey(object, key)));
    }
    std::sort(entries.begin(), entries.end());
    return "{" + joined(static_cast<int64_t>(entries.size()), [&](int64_t i) { return entries[static_cast<size_t>(i)]; }) +
           "}";
  }
  return class_getName(NSObject::class_(object));
}

NSString* text(const char* utf8) { return NSString::stringWithUTF8String(classOf<NSString>(), utf8); }

NSArray* arrayOf(std::vector<NSObject*> elements) {
  return NSArray::arrayWithObjects(classOf<NSArray>(), elements.data(), elements.size());
}

NSDictionary* dictionaryOf(std::vector<std::pair<NSObject*, NSObject*>> entries) {
  NSMutableDictionary* const dictionary =
      NSMutableDictionary::dictionaryWithCapacity(classOf<NSMutableDictionary>(), entries.size());
  for (const auto& [key, value] : entries) NSMutableDictionary::setObject(dictionary, value, key);
  return dictionary;
}

Owned<NSObject> pretendInstance(const char* className) {
  return adopt(NSObject::init(NSObject::alloc(pretendingClass(className))));
}

std::string raisedException() {
  const HostHeld raised = host::Runtime::shared().takePendingException();
  if (!raised) return "";
  const host::HostException exception(raised);
  return exception.className() + ": " + exception.message();
}

void dropEverythingSince(const host::LiveCounts& before) {
  while (host::HostObject::live().count() > before.objects) host::HostObject::live().first()->unlock();
  while (host::HostString::live().count() > before.strings) host::HostString::live().first()->unlock();
  while (host::HostText::live().count() > before.texts) host::HostText::live().first()->unlock();
}

BridgeTest::BridgeTest() {
  static const bool started = [] {
    if (runtime().findClass("NSAttributedStringZKT") == nullptr) {
      runtime().startPlugin(reinterpret_cast<host::PluginMain>(&REALPluginMain));
    }
    defineClasses();
    defineOptionalPlatformClasses();
    return true;
  }();
  EXPECT_TRUE(started);
  forgetServices();
  plugin::gResolver = &resolve;
  plugin::hostVersion = 2019.01;
  plugin::instances = nullptr;
  before_ = runtime().live();
  pool_.emplace();
}

BridgeTest::~BridgeTest() {
  pool_.reset();
  EXPECT_EQ(raisedException(), "");
  EXPECT_EQ(bridge::LastDictionary, nullptr);
  EXPECT_EQ(runtime().live(), *before_) << runtime().describeLive();
  EXPECT_EQ(registry_ ? CFDictionaryGetCount(registry_) : 0, 0) << "wrappers left their entries behind";
  plugin::instances = nullptr;
  interceptions().clear();
  allOn();
}

void BridgeTest::switchOff(const char* name) {
  runtime().faults().switchOff(name);
  forgetServices();
}

void BridgeTest::allOn() {
  runtime().faults().clear();
  forgetServices();
}

void BridgeTest::intercept(const char* service, void* function) {
  interceptions()[service] = function;
  forgetServices();
}

void BridgeTest::forgetServices() {
#define FORGET(accessor, cell, lookup, ...) plugin::cell = nullptr;
  PLUGIN_HOST_SERVICES(FORGET)
  PLUGIN_ARRAY_GETTERS(FORGET)
#undef FORGET
  plugin::pStringLength = nullptr;
  plugin::pVariantType = nullptr;
  bridge::GetTrueFolderItem = nullptr;
  bridge::doneGetTrueFolderItem = false;
  bridge::myMemoryBlockGetPtr = nullptr;
  bridge::memoryBlockConstructor = nullptr;
  bridge::memoryBlockConstructorSought = false;
}

void BridgeTest::useRegistry() {
  registry_ = adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0, nullptr, nullptr));
  plugin::instances = registry_;
}

}  // namespace bridge_test
