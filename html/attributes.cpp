// Builds attribute dictionaries from the reader's state.
#include "html/attributes.hpp"

#include <bit>

#include "html/text.hpp"

namespace html {

void resetStyle() {
  mask = 0;
  underlineFlag = false;
  fontsize = defaultFontSize;
}

void setTrait(NSFontTraitMask trait, bool on) { mask = on ? mask | trait : mask & ~trait; }

namespace {

NSFont* currentFont() {
  constexpr NSInteger regularWeight = 5;
  NSFontManager* manager = NSFontManager::sharedFontManager(classOf<NSFontManager>());
  return NSFontManager::fontWithFamily(manager, literal("Helvetica"), mask, regularWeight, static_cast<CGFloat>(fontsize));
}

// Leaves out what is nil.
class DictionaryBuilder {
 public:
  void add(NSString* key, NSObject* value) {
    if (value == nullptr) return;
    keys_[count_] = key;
    values_[count_++] = value;
  }
  Owned<NSDictionary> build() const {
    return retain(NSDictionary::dictionaryWithObjects(classOf<NSDictionary>(), values_, keys_, count_));
  }

 private:
  static constexpr NSUInteger capacity = 3;
  NSObject* keys_[capacity];
  NSObject* values_[capacity];
  NSUInteger count_ = 0;
};

}  // namespace

Owned<NSDictionary> currentAttributes() {
  DictionaryBuilder attributes;
  attributes.add(NSFontAttributeName, currentFont());
  attributes.add(NSUnderlineStyleAttributeName, NSNumber::numberWithBool(classOf<NSNumber>(), underlineFlag ? YES : NO));
  attributes.add(NSLinkAttributeName, linkString);
  return attributes.build();
}

// Links are told apart as objects, so what is remembered of one serves no other.
Owned<NSDictionary> AttributeMemo::current() {
  if (linkString != nullptr) return currentAttributes();
  auto& known = plain_[{std::bit_cast<uint32_t>(fontsize), mask, underlineFlag}];
  if (!known) known = currentAttributes();
  return known;
}

}  // namespace html
