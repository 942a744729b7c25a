// Ranges, sizes, points and rectangles.
#include <cstdio>

#include "host/siblings/class_builder.hpp"
#include "host/siblings/classes.hpp"
#include "host/siblings/support.hpp"

namespace siblings {
namespace {

template <class... Words>
HostString* formatted(const char* format, Words... words) {
  char text[256];
  const int length = std::snprintf(text, sizeof text, format, words...);
  return buildString(text, length, kCFStringEncodingUTF8);
}

HostString* describeRange(HostObject* self, int64_t) {
  return formatted("{%lu, %lu}", self->word<uint64_t>(0), self->word<uint64_t>(1));
}

HostString* describePair(HostObject* self, int64_t) {
  return formatted("{%g, %g}", self->word<double>(0), self->word<double>(1));
}

HostString* describeRect(HostObject* self, int64_t) {
  return formatted("{{%g, %g}, {%g, %g}}", self->word<double>(0), self->word<double>(1), self->word<double>(2),
                   self->word<double>(3));
}

void construct(HostObject*) {}

void constructRange(HostObject* self, uint64_t location, uint64_t length) {
  self->word<uint64_t>(0) = location;
  self->word<uint64_t>(1) = length;
}

void constructPair(HostObject* self, double first, double second) {
  self->word<double>(0) = first;
  self->word<double>(1) = second;
}

void constructRect(HostObject* self, double x, double y, double width, double height) {
  constructPair(self, x, y);
  self->word<double>(2) = width;
  self->word<double>(3) = height;
}

}  // namespace

void registerStructures() {
  ClassBuilder::registerWithHost(ClassBuilder("NSRangeZKT")
                                     .data(sizeof(NSRange))
                                     .field("location", "UInt64", 0)
                                     .field("length", "UInt64", 8)
                                     .property("description", "String", describeRange)
                                     .method("Constructor", construct)
                                     .method("Constructor(location as UInt64, length as UInt64)", constructRange));
  ClassBuilder::registerWithHost(ClassBuilder("NSSizeZKT")
                                     .data(sizeof(NSSize))
                                     .field("width", "Double", 0)
                                     .field("height", "Double", 8)
                                     .property("description", "String", describePair)
                                     .method("Constructor", construct)
                                     .method("Constructor(width as Double, height as Double)", constructPair));
  ClassBuilder::registerWithHost(ClassBuilder("NSPointZKT")
                                     .data(sizeof(NSPoint))
                                     .field("x", "Double", 0)
                                     .field("y", "Double", 8)
                                     .property("description", "String", describePair)
                                     .method("Constructor", construct)
                                     .method("Constructor(x as Double, y as Double)", constructPair));
  ClassBuilder::registerWithHost(
      ClassBuilder("NSRectZKT")
          .data(sizeof(NSRect))
          .field("x", "Double", 0)
          .field("y", "Double", 8)
          .field("width", "Double", 16)
          .field("height", "Double", 24)
          .property("description", "String", describeRect)
          .method("Constructor", construct)
          .method("Constructor(x as Double, y as Double, width as Double, height as Double)", constructRect));
}

}  // namespace siblings
