// Host objects as platform objects, by host class.
#include "bridge/from_object.hpp"

#include <algorithm>
#include <iterator>
#include <optional>

#include "bridge/folder_items.hpp"
#include "bridge/host_classes.hpp"
#include "bridge/memory.hpp"
#include "bridge/sibling_messages.hpp"
#include "plugin/instance_data.hpp"
#include "plugin/services.hpp"

namespace bridge {
namespace {

using plugin::REALclassRef;
using plugin::REALobject;

bool isOf(REALobject object, REALclassRef hostClass) {
  return hostClass != nullptr && plugin::REALObjectIsA(object, hostClass);
}

bool isOf(REALobject object, const char* hostClass) { return isOf(object, plugin::REALGetClassRef(hostClass)); }

// The reference of a wrapper class, looked up when its row is first reached and kept, nil included. Rows are reached in
// order, so those looked up are the first ones.
REALclassRef wrapperClass(std::size_t row) {
  static constinit REALclassRef references[std::size(wrapperClasses)] = {};
  static constinit std::size_t reached = 0;
  if (row == reached) references[reached++] = plugin::REALGetClassRef(wrapperClasses[row]);
  return references[row];
}

bool isWrapper(REALobject object) {
  for (std::size_t row = 0; row < std::size(wrapperClasses); ++row) {
    if (isOf(object, wrapperClass(row))) return true;
  }
  return false;
}

template <auto& hostClasses>
bool isOfAny(REALobject object) {
  return std::any_of(std::begin(hostClasses), std::end(hostClasses),
                     [object](const char* hostClass) { return isOf(object, hostClass); });
}

// The host structure has the fields of the platform's in the same order.
template <class Fields, auto& make>
NSObject* structure(REALobject object) {
  return make(classOf<NSValue>(), plugin::readInstanceData<Fields>(object));
}

// The sibling library reads its own object.
template <auto& make>
NSObject* mediaTime(REALobject object) {
  return make(classOf<NSValue>(), object);
}

struct StructureRow {
  const char* hostClass;
  NSObject* (*convert)(REALobject);
};

using Time = ValueExtensions;
constexpr StructureRow structures[] = {
    {"NSSizeZKT", structure<NSSize, NSValue::valueWithSize>},
    {"NSRectZKT", structure<NSRect, NSValue::valueWithRect>},
    {"NSRangeZKT", structure<NSRange, NSValue::valueWithRange>},
    {"NSPointZKT", structure<NSPoint, NSValue::valueWithPoint>},
    {"QTKitTimeZKT", mediaTime<Time::valueWithQTTimeZKT>},
    {"QTKitTimeRangeZKT", mediaTime<Time::valueWithQTTimeRangeZKT>},
    {"CMTimeMappingZKT", mediaTime<Time::valueWithCMTimeMappingZKT>},
    {"CMTimeRangeZKT", mediaTime<Time::valueWithCMTimeRangeZKT>},
    {"CMTimeZKT", mediaTime<Time::valueWithCMTimeZKT>},
};

const StructureRow* structureOf(REALobject object) {
  const auto row = std::find_if(std::begin(structures), std::end(structures),
                                [object](const StructureRow& candidate) { return isOf(object, candidate.hostClass); });
  return row == std::end(structures) ? nullptr : row;
}

// A platform object that carries the host object, where a sibling library offers one.
NSObject* carried(REALobject object) { return HostObjectCarrier::wrap(HostObjectCarrier::find(), object); }

}  // namespace

NSObject* GetObjectAsNSObject(REALobject object) {
  if (isOf(object, "MemoryBlock")) return NewNSData(static_cast<plugin::REALmemoryBlock>(object));
  if (isFolderItem(object)) return urlFromFolderItem(static_cast<plugin::REALfolderItem>(object));
  if (isOf(object, "Dictionary")) return NewNSDictionary(static_cast<plugin::REALdictionary*>(object));
  if (isWrapper(object) || isOfAny<delegateClasses>(object)) return plugin::platformObject(object);
  if (const StructureRow* row = structureOf(object)) return row->convert(object);
  if (isOfAny<coreClasses>(object)) return plugin::platformObject(object);
  return carried(object);
}

}  // namespace bridge
