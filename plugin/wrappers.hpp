// Platform objects inside host objects: the registry that finds a wrapper again, construction and destruction, wrapping.
#pragma once

#include "platform/appkit.h"
#include "platform/corefoundation.h"
#include "plugin/host_owned.hpp"
#include "plugin/instance_data.hpp"

namespace plugin {

// The registry, shared with the sibling libraries and owned by one of them: platform object to wrapper, neither retained.
// Nil while no sibling offers it; then nothing is registered. Any new instance of one of our classes may fill it.
inline constinit CFMutableDictionaryRef instances = nullptr;
inline constinit bool ExceptionsInitialized = false;

// Obtains the registry and has the sibling's exception support prepared, each until it has succeeded once.
void obtainSharedServices();

// The wrapper of a platform object, borrowed from the registry, or nil.
REALobject registeredInstance(NSObject* object);
// The same with one more reference for the caller.
REALobject lockRegisteredInstance(NSObject* object);
// Neither counts references. The object is not nil.
void registerInstance(NSObject* object, REALobject wrapper);
void unregisterInstance(NSObject* object);

// Takes the platform object out of a wrapper: out of the registry, released, the pointer nil. When the release raises, the
// pointer is left as it was. Raises platform exceptions, so belongs inside the guard.
void emptyWrapper(REALobject wrapper);

// The constructor and destructor of the wrapper classes.
void constructWrapper(REALobject wrapper);
void destroyWrapper(REALobject wrapper);

inline constexpr auto NSAttributedStringConstructor = &constructWrapper;
inline constexpr auto NSTextAttachmentConstructor = &constructWrapper;
inline constexpr auto NSFileWrapperConstructor = &constructWrapper;
inline constexpr auto NSShadowConstructor = &constructWrapper;
inline constexpr auto NSAttributedStringDestructor = &destroyWrapper;
inline constexpr auto NSTextAttachmentDestructor = &destroyWrapper;
inline constexpr auto NSFileWrapperDestructor = &destroyWrapper;
inline constexpr auto NSShadowDestructor = &destroyWrapper;

// The object's wrapper: the registered one, or a new one of the host class, which is registered. Nil for a nil object or an
// unknown class. The result carries one reference for the receiver.
REALobject wrapRegistered(NSObject* object, const char* hostClass);

inline REALobject NewNSImageZKT(NSImage* image) { return wrapRegistered(image, "NSImageZKT"); }
inline REALobject NewNSFileWrapperZKT(NSFileWrapper* wrapper) { return wrapRegistered(wrapper, "NSFileWrapperZKT"); }
inline REALobject NewNSColorZKT(NSColor* color) { return wrapRegistered(color, "NSColorZKT"); }
inline REALobject NewNSErrorZKT(NSError* error) { return wrapRegistered(error, "NSErrorZKT"); }
inline REALobject NewNSShadowZKT(NSShadow* shadow) { return wrapRegistered(shadow, "NSShadowZKT"); }

// A new wrapper of the class named like the nearest of the object's classes that the host has, with "ZKT" appended. Nil for
// a nil argument, an object that is not of the platform class, or when the host has none of the classes. Not registered.
REALobject NewNSObjectZKT(NSObject* object, Class platformClass);

// A class name to which "ZKT" is appended is shorter than this; a longer one has no host class.
inline constexpr std::size_t classNameLimit = 200;

}  // namespace plugin
