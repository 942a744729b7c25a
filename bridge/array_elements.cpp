// Host arrays as platform arrays: one walk, and a row for each kind of element.
#include "bridge/array_elements.hpp"

#include <cstring>
#include <type_traits>

#include "bridge/dates.hpp"
#include "bridge/from_variant.hpp"
#include "bridge/nesting.hpp"
#include "bridge/strings.hpp"
#include "platform/corefoundation.h"
#include "platform/owned.h"
#include "plugin/exceptions.hpp"
#include "plugin/host_owned.hpp"
#include "plugin/instance_data.hpp"
#include "plugin/services.hpp"

namespace bridge {
namespace {

using plugin::HostOwned;
using plugin::REALobject;
using plugin::REALstring;
using plugin::REALtext;

// Hosts before this version keep the elements of an array in one block of storage, whose address is the second word of the
// array's instance data; nil when an array has none.
constexpr double versionWithoutStorage = 2016.0;
constexpr std::size_t storageWord = 1;

const std::byte* elementStorage(REALobject array) {
  if (!(plugin::hostVersion < versionWithoutStorage)) return nullptr;
  return plugin::readInstanceData<const std::byte*>(array, storageWord);
}

// How the walk holds an element: host values with one reference, numbers as they are.
template <class Stored>
struct Holding {
  using Element = Stored;
  static Element lock(Stored stored) { return stored; }
  static Element adopt(Stored got) { return got; }
};
template <class Stored>
struct Holding<Stored*> {
  using Element = HostOwned<Stored>;
  static Element lock(Stored* stored) { return plugin::lockHost(stored); }
  static Element adopt(Stored* got) { return plugin::adoptHost(got); }
};

// A kind of element: its type in the array's storage, the service that reads one, and what it becomes.
template <class StoredType, auto& elementGetter, auto elementConversion>
struct Kind {
  using Stored = StoredType;
  using Element = typename Holding<Stored>::Element;

  static Element read(REALobject array, int64_t index) {
    if (const std::byte* storage = elementStorage(array)) {
      Stored stored;
      std::memcpy(&stored, storage + static_cast<std::size_t>(index) * sizeof(Stored), sizeof(Stored));
      return Holding<Stored>::lock(stored);
    }
    return Holding<Stored>::adopt(elementGetter(array, index));
  }
  static NSObject* convert(const Element& element) { return elementConversion(element); }
};

// An index that an array no longer has is reported, and stands for the empty element.
template <class Kind>
typename Kind::Element readChecked(REALobject array, int64_t index) {
  const int64_t bound = plugin::REALGetArrayUBound(array);
  if (index <= bound) return Kind::read(array, index);
  plugin::RaiseOutOfBoundsException(index, bound + 1);
  return {};
}

// The count is fixed at the start. An element without a platform form raises, since platform arrays refuse nil.
template <class Kind>
NSObject* convertArray(REALobject array) {
  const NestingLevel level;
  NSMutableArray* const result = NSMutableArray::array(classOf<NSMutableArray>());
  const int64_t bound = plugin::REALGetArrayUBound(array);
  for (int64_t index = 0; index <= bound; ++index) {
    const auto element = readChecked<Kind>(array, index);
    NSMutableArray::addObject(result, Kind::convert(element));
  }
  return result;
}

template <class Value, auto& make>
NSObject* number(Value value) {
  return make(classOf<NSNumber>(), value);
}

NSString* orEmpty(NSString* text) { return text == nullptr ? __CFStringMakeConstantString("") : text; }

NSObject* stringElement(REALstring text) { return orEmpty(autoreleasedString(text)); }

// Through a variant and its host string, for hosts that do not hand out a text's platform string.
Owned<NSString> stringByVariant(REALtext text) {
  const auto variant = plugin::adoptHost(plugin::REALNewVariantText(text));
  if (!variant) return nullptr;
  const auto hostString = plugin::adoptHost(plugin::GetVariantString(variant));
  if (!hostString) return nullptr;
  return adopt(plugin::REALCopyStringCFString(hostString, false));
}

NSObject* textElement(REALtext text) {
  if (text == nullptr) return orEmpty(nullptr);
  Owned<NSString> string = adopt(plugin::REALCopyTextCFString(text));
  if (!string) string = stringByVariant(text);
  return orEmpty(string.autorelease());
}

NSObject* dateElement(REALobject date) { return NewNSDate(static_cast<plugin::REALdate*>(date)); }

struct Row {
  int64_t typeCode;
  ArrayConversion* convert;
};

using plugin::REALGetArrayValueObject;
constexpr Row rows[] = {
    {4098, convertArray<Kind<int64_t, plugin::REALGetArrayValueInteger, number<int64_t, NSNumber::numberWithLong>>>},
    {4099, convertArray<Kind<int64_t, plugin::REALGetArrayValueInt64, number<int64_t, NSNumber::numberWithLongLong>>>},
    {4100, convertArray<Kind<float, plugin::REALGetArrayValueSingle, number<float, NSNumber::numberWithFloat>>>},
    {4101, convertArray<Kind<double, plugin::REALGetArrayValueDouble, number<double, NSNumber::numberWithDouble>>>},
    {4103, convertArray<Kind<REALobject, REALGetArrayValueObject, dateElement>>},
    {4104, convertArray<Kind<REALstring, plugin::REALGetArrayValueString, stringElement>>},
    {4105, convertArray<Kind<REALobject, REALGetArrayValueObject, GetVariantAsNSObject>>},
    {4107, convertArray<Kind<BOOL, plugin::REALGetArrayValueBoolean, number<BOOL, NSNumber::numberWithBool>>>},
    {4133, convertArray<Kind<REALtext, plugin::REALGetArrayValueText, textElement>>},
};

}  // namespace

ArrayConversion* arrayConversion(int64_t typeCode) {
  for (const Row& row : rows) {
    if (row.typeCode == typeCode) return row.convert;
  }
  return nullptr;
}

}  // namespace bridge
