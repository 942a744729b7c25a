// Which declarations the compiler accepts for which functions.
#include "plugin/declaration.hpp"

#include <gtest/gtest.h>

namespace declaration_test {

using namespace plugin;

void nothing(REALobject);
bool text(REALobject, REALstring);
REALobject position(REALobject, REALstring, uint64_t);
REALobject offsets(REALobject, int64_t, int64_t, REALdictionary*, REALobject*);
REALmemoryBlock file(REALobject, REALfolderItem, int64_t, REALdictionary**);
REALstring constantText();
REALobject factory(REALstring);
double reading(REALobject, int64_t);
void writing(REALobject, int64_t, double);
int narrow(REALobject, int);

static_assert(matches<"beginEditing", nothing>);
static_assert(matches<"initWithString(text as string) as boolean", text>);
static_assert(matches<"initWithString( Text AS String ) As BOOLEAN", text>);
static_assert(matches<"attributeAtIndex(name as string, location as UInt64) as variant", position>);
static_assert(
    matches<"f(a as integer, b as integer, c as dictionary = nil, byref e as NSErrorZKT) as NSFileWrapperZKT", offsets>);
static_assert(matches<"f(file as Folderitem, n as Integer = 0, byref d as dictionary) as memoryblock", file>);
static_assert(matchesShared<"NSFontAttributeName as string", constantText>);
static_assert(matchesShared<R"(f(text as string = "") as NSAttributedStringZKT)", factory>);

// Another result, or none.
static_assert(!matches<"initWithString(text as string)", text>);
static_assert(!matches<"initWithString(text as string) as variant", text>);
static_assert(!matches<"beginEditing as boolean", nothing>);
// Another parameter type, number, order or way of passing.
static_assert(!matches<"attributeAtIndex(name as string, location as integer) as variant", position>);
static_assert(!matches<"attributeAtIndex(name as string) as variant", position>);
static_assert(!matches<"attributeAtIndex(location as UInt64, name as string) as variant", position>);
static_assert(
    !matches<"f(a as integer, b as integer, c as dictionary = nil, e as NSErrorZKT) as NSFileWrapperZKT", offsets>);
static_assert(!matches<"f(a as integer, b as integer, byref c as dictionary, byref e as NSErrorZKT) as variant", offsets>);
static_assert(!matches<"initWithString(text as NSStringZKT) as boolean", text>);
// An instance method takes the object, a shared one does not.
static_assert(!matches<"NSFontAttributeName as string", constantText>);
static_assert(!matchesShared<"initWithString(text as string) as boolean", text>);
// A function whose types no host type stands for.
static_assert(!matches<"f(a as integer) as integer", narrow>);
// Not declarations.
static_assert(!matches<"initWithString(text as string as boolean", text>);
static_assert(!matches<"initWithString(text string) as boolean", text>);
static_assert(!matches<"initWithString(text as string) as boolean, more", text>);
static_assert(!matches<"initWithString(text as string,) as boolean", text>);
static_assert(!matches<"initWithString(text as string) as", text>);
static_assert(!matches<"", nothing>);
// Defaults that do not suit.
static_assert(!matches<"initWithString(text as string = nil) as boolean", text>);
static_assert(!matches<"f(file as Folderitem = 0, n as Integer = 0, byref d as dictionary) as memoryblock", file>);
static_assert(!matches<"f(file as Folderitem, n as Integer = nil, byref d as dictionary) as memoryblock", file>);
static_assert(!matches<"f(file as Folderitem, n as Integer, byref d as dictionary = nil) as memoryblock", file>);
// Properties.
static_assert(matchesProperty<"Double">(reading, writing) && !matchesProperty<"Integer">(reading, writing));

}  // namespace declaration_test
