// Print settings: paper, margins, pagination, and the dictionary behind them.
#include "host/siblings/class_builder.hpp"
#include "host/siblings/classes.hpp"
#include "host/siblings/dictionaries.hpp"
#include "host/siblings/support.hpp"
#include "platform/appkit.h"

namespace siblings {
namespace {

constexpr const char* constants[] = {
    "NSPortraitOrientation = 0", "NSLandscapeOrientation = 1", "NSAutoPagination = 0",
    "NSFitPagination = 1",       "NSClipPagination = 2",
};

NSPrintInfo* info(HostObject* self) { return wrapped<NSPrintInfo>(self); }

template <class Shown, const auto& message>
Shown get(HostObject* self, int64_t) {
  return guarded([self] { return static_cast<Shown>(message(info(self))); });
}

template <class Number>
Number argumentOf(const Message<void(Number)>&);

template <class Shown, const auto& message>
void set(HostObject* self, int64_t, Shown value) {
  guarded([=] { return message(info(self), static_cast<decltype(argumentOf(message))>(value)), true; });
}

HostObject* paperSize(HostObject* self, int64_t) {
  return guarded([self] {
    HostObject* size = newInstance("NSSizeZKT");
    if (size != nullptr) size->word<NSSize>() = NSPrintInfo::paperSize(info(self));
    return size;
  });
}

void setPaperSize(HostObject* self, int64_t, HostObject* size) {
  if (size == nullptr) return raise("NilObjectException", "paperSize is nil");
  guarded([=] { return NSPrintInfo::setPaperSize(info(self), size->word<NSSize>()), true; });
}

HostObject* dictionary(HostObject* self, int64_t) {
  return guarded([self] { return hostDictionary(NSPrintInfo::dictionary(info(self))); });
}

void setEntry(HostObject* self, HostString* key, NSObject* value) {
  NSMutableDictionary::setObject(NSPrintInfo::dictionary(info(self)), value, platformString(key));
}

void setText(HostObject* self, HostString* key, HostString* text) {
  guarded([=] { return setEntry(self, key, platformString(text)), true; });
}

void setNumber(HostObject* self, HostString* key, double number) {
  guarded([=] { return setEntry(self, key, NSNumber::numberWithDouble(classOf<NSNumber>(), number)), true; });
}

void construct(HostObject* self) {
  guarded([self] {
    empty(self);
    const Owned<NSObject> made = adopt(NSObject::init(alloc<NSPrintInfo>()));
    return fill(self, made), true;
  });
}

}  // namespace

void registerPrintInfos() {
  using Info = NSPrintInfo;
  ClassBuilder builder("NSPrintInfoZKT");
  builder.wrapper()
      .method("Constructor", construct)
      .property("paperSize", "NSSizeZKT", paperSize, setPaperSize)
      .property("orientation", "Integer", get<int64_t, Info::orientation>, set<int64_t, Info::setOrientation>)
      .property("leftMargin", "Double", get<double, Info::leftMargin>, set<double, Info::setLeftMargin>)
      .property("rightMargin", "Double", get<double, Info::rightMargin>, set<double, Info::setRightMargin>)
      .property("topMargin", "Double", get<double, Info::topMargin>, set<double, Info::setTopMargin>)
      .property("bottomMargin", "Double", get<double, Info::bottomMargin>, set<double, Info::setBottomMargin>)
      .property("scalingFactor", "Double", get<double, Info::scalingFactor>, set<double, Info::setScalingFactor>)
      .property("horizontalPagination", "Integer", get<int64_t, Info::horizontalPagination>,
                set<int64_t, Info::setHorizontalPagination>)
      .property("verticalPagination", "Integer", get<int64_t, Info::verticalPagination>,
                set<int64_t, Info::setVerticalPagination>)
      .property("horizontallyCentered", "Boolean", get<bool, Info::isHorizontallyCentered>,
                set<bool, Info::setHorizontallyCentered>)
      .property("verticallyCentered", "Boolean", get<bool, Info::isVerticallyCentered>,
                set<bool, Info::setVerticallyCentered>)
      .property("dictionary", "Dictionary", dictionary)
      .method("setEntry(key as String, text as String)", setText)
      .method("setEntry(key as String, number as Double)", setNumber);
  for (const char* constant : constants) builder.constant(constant);
  ClassBuilder::registerWithHost(builder);
}

}  // namespace siblings
