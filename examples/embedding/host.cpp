// A small host: loads the library, makes a styled text, reads HTML into it, and writes it as RTF.
// Run as: host StyledTextZKT.so OUT.rtf
#include <dlfcn.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <map>
#include <string>

namespace {

// The records that the library registers, as far as this host reads them.
struct PropertyRecord {
  uint64_t slot0;
  const char *name, *type;
  uint64_t flags;
  const void *getter, *setter;
  int64_t parameter;
  uint64_t slots7to11[5];
};
struct MethodRecord {
  const void* function;
  uint64_t slot1;
  const char* declaration;
  uint64_t slots3to5[3];
};
struct ClassRecord {
  uint64_t version;
  const char *name, *superclass;
  int64_t instanceDataSize;
  uint64_t slot4;
  void (*constructor)(void* object);
  void (*destructor)(void* object);
  const PropertyRecord* properties;
  uint64_t propertyCount;
  const MethodRecord* methods;
  uint64_t methodCount;
  uint64_t slots11to29[19];
};
static_assert(sizeof(PropertyRecord) == 96 && sizeof(MethodRecord) == 48 && sizeof(ClassRecord) == 240);

// Host values, all counted. What the library keeps in an object begins 48 bytes into it.
struct Object {
  int64_t references = 1;
  const ClassRecord* type = nullptr;
  std::string* text = nullptr;  // the bytes of strings and memory blocks, the message of exceptions
  std::string* name = nullptr;  // the class of exceptions
  uint64_t unused[2] = {};
  uint64_t data[8] = {};
};
static_assert(offsetof(Object, data) == 48);

std::map<std::string, const ClassRecord*> classes;
Object* raised = nullptr;

const ClassRecord* classNamed(const char* name) {
  const auto found = name == nullptr ? classes.end() : classes.find(name);
  return found == classes.end() ? nullptr : found->second;
}

// Superclasses are built first and taken apart last.
void construct(Object* object, const ClassRecord* type) {
  if (type == nullptr) return;
  construct(object, classNamed(type->superclass));
  if (type->constructor != nullptr) type->constructor(object);
}
void destroy(Object* object) {
  for (const ClassRecord* type = object->type; type != nullptr; type = classNamed(type->superclass)) {
    if (type->destructor != nullptr) type->destructor(object);
  }
  delete object->text;
  delete object->name;
  delete object;
}

Object* newBytes(const void* bytes, int64_t length) {
  auto* made = new Object;
  made->text = new std::string(static_cast<size_t>(length), '\0');
  if (bytes != nullptr) std::memcpy(made->text->data(), bytes, static_cast<size_t>(length));
  return made;
}

// The services.
void registerClass(const ClassRecord* record) { classes[record->name] = record; }
void lock(Object* value) { ++value->references; }
void unlock(Object* value) {
  if (value != nullptr && --value->references == 0) destroy(value);
}
// A class of the library's, or one of the host's exceptions.
Object* newInstance(const char* className) {
  const ClassRecord* type = classNamed(className);
  if (type == nullptr && std::strstr(className, "Exception") == nullptr) return nullptr;
  auto* object = new Object;
  object->type = type;
  object->name = new std::string(className);
  construct(object, type);
  return object;
}
bool setText(Object* object, const char* property, Object* value) {
  if (std::strcmp(property, "Message") != 0 || value == nullptr) return false;
  object->text = new std::string(*value->text);
  return true;
}
void raise(Object* exception) {
  lock(exception);
  raised = exception;
}
Object* newString(const void* bytes, int32_t length) { return newBytes(bytes, length); }
const char* stringBytes(Object* string) { return string->text->c_str(); }
int64_t stringLength(Object* string) { return static_cast<int64_t>(string->text->size()); }
uint32_t stringEncoding(Object*) { return 0x08000100; }  // UTF-8
Object* newMemoryBlock(int32_t size) { return newBytes(nullptr, size); }
void* memoryBlockBytes(Object* block) { return block->text->data(); }
int64_t memoryBlockSize(Object* block) { return static_cast<int64_t>(block->text->size()); }
void* globalMethod(void*, const char* declaration) {
  const bool isLength = std::strcmp(declaration, "LenB( s as string ) as integer") == 0;
  return isLength ? reinterpret_cast<void*>(stringLength) : nullptr;
}

struct Service {
  const char* name;
  void* address;
};
template <class Function>
Service service(const char* name, Function* function) {
  return {name, reinterpret_cast<void*>(function)};
}
const Service services[] = {
    service("PluginRegisterClass", registerClass),
    service("PluginNewInstance", newInstance),
    service("REALLockObject", lock),
    service("REALUnlockObject", unlock),
    service("REALLockString", lock),
    service("REALUnlockString", unlock),
    service("REALBuildString", newString),
    service("StringGetCString", stringBytes),
    service("REALGetStringEncoding", stringEncoding),
    service("REALLoadGlobalMethod", globalMethod),
    service("newMemoryBlock", newMemoryBlock),
    service("memoryBlockGetPtr", memoryBlockBytes),
    service("memoryBlockGetSize", memoryBlockSize),
    service("REALSetPropValueString", setText),
    service("RuntimeRaiseException", raise),
};

// Nil for what this host lacks: the library does without.
void* resolve(const char* name) {
  for (const Service& candidate : services) {
    if (std::strcmp(candidate.name, name) == 0) return candidate.address;
  }
  return nullptr;
}

// Calls the method of exactly that declaration. An exception that was raised meanwhile is told.
template <class Result, class... Arguments>
Result call(Object* object, const char* declaration, Arguments... arguments) {
  for (const ClassRecord* type = object->type; type != nullptr; type = classNamed(type->superclass)) {
    for (uint64_t index = 0; index < type->methodCount; ++index) {
      const MethodRecord& method = type->methods[index];
      if (std::strcmp(method.declaration, declaration) != 0) continue;
      const auto function = reinterpret_cast<Result (*)(Object*, Arguments...)>(const_cast<void*>(method.function));
      Result result = function(object, arguments...);
      if (raised != nullptr) std::cout << *raised->name << ": " << *raised->text << '\n';
      unlock(raised);
      raised = nullptr;
      return result;
    }
  }
  return Result();
}

int64_t integer(Object* object, const char* property) {
  for (uint64_t index = 0; index < object->type->propertyCount; ++index) {
    const PropertyRecord& record = object->type->properties[index];
    if (std::strcmp(record.name, property) != 0) continue;
    return reinterpret_cast<int64_t (*)(Object*, int64_t)>(const_cast<void*>(record.getter))(object, record.parameter);
  }
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  void* library = count == 3 ? dlopen(arguments[1], RTLD_NOW) : nullptr;
  void* entry = library != nullptr ? dlsym(library, "REALPluginMain") : nullptr;
  if (entry == nullptr) {
    std::cerr << "host: run as host StyledTextZKT.so OUT.rtf\n";
    return 1;
  }
  reinterpret_cast<void (*)(void* (*)(const char*))>(entry)(resolve);
  std::cout << classes.size() << " classes\n";

  Object* text = newInstance("NSAttributedStringZKT");
  call<Object*>(text, "GeneratePDF(PrintOptions as variant = nil) as MemoryBlock", static_cast<Object*>(nullptr));

  Object* source = newString("<b>Hello</b>from a small host", 29);
  const bool filled = call<bool>(text, "initWithHTMLOld(data as string) as boolean", source);
  Object* html = call<Object*>(text, "htmlString as string");
  std::cout << filled << ", " << integer(text, "Length") << " units\n" << *html->text << '\n';

  Object* rtf = call<Object*>(text, "rtf as memoryblock");
  std::ofstream(arguments[2], std::ios::binary) << *rtf->text;
  for (Object* value : {source, html, rtf, text}) unlock(value);
}
