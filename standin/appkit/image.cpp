// NSImage: a picture as the bytes that it came from, with the size that it is to be shown in.
#include "standin/appkit/image.hpp"

#include "standin/formats/pictures/picture.hpp"
#include "standin/foundation/checks.hpp"
#include "standin/foundation/data.hpp"
#include "standin/foundation/files.hpp"
#include "standin/foundation/string.hpp"
#include "standin/foundation/url.hpp"

namespace standin::appkit {
namespace {

namespace pictures = formats::pictures;

// One point a pixel. False when the bytes are no picture.
bool fill(Image& image, NSData* bytes) {
  const auto size = pictures::sizeOf(foundation::bytesOf(bytes));
  if (!size) return false;
  image.bytes = adopt(static_cast<NSData*>(NSObject::copy(bytes)));
  image.size = {static_cast<CGFloat>(size->width), static_cast<CGFloat>(size->height)};
  return true;
}

// The receiver is released when there is no picture.
NSImage* filled(NSImage* self, NSData* bytes) {
  Owned<NSImage> receiver = adopt(self);
  return fill(stateOf<Image>(self), bytes) ? receiver.detach() : nullptr;
}

NSImage* initWithData(NSImage* self, NSData* bytes) { return filled(self, bytes); }

NSImage* initWithPath(NSImage* self, const std::string& path) {
  std::optional<std::string> bytes = foundation::readFile(foundation::existingPath(path).c_str());
  return filled(self, bytes ? foundation::newData(std::move(*bytes)).autorelease() : nullptr);
}

NSImage* initWithContentsOfFile(NSImage* self, NSString* path) {
  Owned<NSImage> receiver = adopt(self);
  foundation::requireArgument(self, "initWithContentsOfFile:", path);
  return initWithPath(receiver.detach(), foundation::utf8Of(path));
}

NSImage* initWithContentsOfURL(NSImage* self, NSURL* url) {
  return initWithPath(self, foundation::filePath(url).value_or(std::string()));
}

NSImage* initWithSize(NSImage* self, NSSize size) {
  stateOf<Image>(self).size = size;
  return self;
}

NSSize size(Image& self) { return self.size; }
void setSize(Image& self, NSSize size) { self.size = size; }
BOOL isValid(Image& self) { return self.bytes != nullptr; }

NSData* TIFFRepresentation(Image& self) {
  std::optional<std::string> bytes = pictures::convert(foundation::bytesOf(self.bytes), pictures::Format::tiff);
  return bytes ? foundation::newData(std::move(*bytes)).autorelease() : nullptr;
}

NSObject* copyWithZone(NSImage* self, void*);

const ClassDefinition imageClass = defineClass<Image>("NSImage", "NSObject")
                                       .method<initWithData>("initWithData:")
                                       .method<initWithContentsOfFile>("initWithContentsOfFile:")
                                       .method<initWithContentsOfURL>("initWithContentsOfURL:")
                                       .method<initWithSize>("initWithSize:")
                                       .method<size>("size")
                                       .method<setSize>("setSize:")
                                       .method<isValid>("isValid")
                                       .method<TIFFRepresentation>("TIFFRepresentation")
                                       .method<copyWithZone>("copyWithZone:");

NSObject* copyWithZone(NSImage* self, void*) {
  Owned<NSImage> copied = create<Image, NSImage>(imageClass);
  stateOf<Image>(copied).bytes = stateOf<Image>(self).bytes;
  stateOf<Image>(copied).size = stateOf<Image>(self).size;
  return copied.detach();
}

}  // namespace

Owned<NSImage> newImage(NSData* bytes) {
  Owned<NSImage> image = create<Image, NSImage>(imageClass);
  return fill(stateOf<Image>(image), bytes) ? std::move(image) : nullptr;
}

NSData* bytesOf(NSImage* image) { return image != nullptr ? stateOf<Image>(image).bytes.get() : nullptr; }
NSSize sizeOf(NSImage* image) { return image != nullptr ? stateOf<Image>(image).size : NSSize{0, 0}; }

}  // namespace standin::appkit
