// Images, and the cells that show them.
#include <algorithm>

#include "host/siblings/class_builder.hpp"
#include "host/siblings/classes.hpp"
#include "host/siblings/support.hpp"
#include "platform/appkit.h"

namespace siblings {
namespace {

constexpr char imageClass[] = "NSImageZKT";

constinit Message<NSImage*(NSString*)> initWithContentsOfFile{"initWithContentsOfFile:"};
constinit Message<NSImage*(NSData*)> initWithData{"initWithData:"};

NSSize size(HostObject* self) { return NSImage::size(wrapped<NSImage>(self)); }
double width(HostObject* self, int64_t) {
  return guarded([self] { return size(self).width; });
}
double height(HostObject* self, int64_t) {
  return guarded([self] { return size(self).height; });
}

HostObject* sizeOf(HostObject* self, int64_t) {
  return guarded([self] {
    HostObject* made = newInstance("NSSizeZKT");
    if (made != nullptr) made->word<NSSize>() = size(self);
    return made;
  });
}

HostObject* imageOf(HostObject* self, int64_t) {
  return guarded([self] { return wrap(NSCell::image(wrapped<NSCell>(self)), imageClass); });
}

// Puts the image that was made into the wrapper; raises when none was.
void take(HostObject* self, NSImage* made, const char* message) {
  const Owned<NSImage> image = adopt(made);
  empty(self);
  if (!image) return raise("IOException", message);
  fill(self, image);
}

void fromFile(HostObject* self, HostObject* file) {
  if (file == nullptr) return raise("NilObjectException", "file is nil");
  guarded([=] {
    HostString* path = nullptr;
    getStringProperty(file, "NativePath", &path);
    NSString* text = platformString(path);
    unlockString(path);
    take(self, initWithContentsOfFile(alloc<NSImage>(), text), "The file is no picture.");
    return true;
  });
}

void fromBytes(HostObject* self, HostObject* block) {
  if (block == nullptr) return raise("NilObjectException", "data is nil");
  guarded([=] {
    NSData* bytes = NSData::dataWithBytes(classOf<NSData>(), memoryBlockPointer(block),
                                          static_cast<NSUInteger>(std::max<int64_t>(memoryBlockSize(block), 0)));
    take(self, initWithData(alloc<NSImage>(), bytes), "The memory block holds no picture.");
    return true;
  });
}

}  // namespace

void registerImages() {
  ClassBuilder::registerWithHost(ClassBuilder(imageClass)
                                     .wrapper()
                                     .property("size", "NSSizeZKT", sizeOf)
                                     .property("width", "Double", width)
                                     .property("height", "Double", height)
                                     .method("Constructor(file as FolderItem)", fromFile)
                                     .method("Constructor(data as MemoryBlock)", fromBytes));
  ClassBuilder::registerWithHost(ClassBuilder("NSCellZKT").wrapper().property("image", imageClass, imageOf));
}

}  // namespace siblings
