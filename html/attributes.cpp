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

Owned<NSDictionary> attributesOf(NSObject* font, NSObject* underline, NSString* link) {
  DictionaryBuilder attributes;
  attributes.add(NSFontAttributeName, font);
  attributes.add(NSUnderlineStyleAttributeName, underline);
  attributes.add(NSLinkAttributeName, link);
  return attributes.build();
}

Owned<NSDictionary> attributesWithLink(NSString* link) {
  return attributesOf(currentFont(), NSNumber::numberWithBool(classOf<NSNumber>(), underlineFlag ? YES : NO), link);
}

}  // namespace

Owned<NSDictionary> currentAttributes() { return attributesWithLink(linkString); }

const Owned<NSDictionary>& AttributeMemo::withoutLink() {
  const State state{std::bit_cast<uint32_t>(fontsize), mask, underlineFlag};
  if (latest_ == nullptr || latest_->first != state) latest_ = &*plain_.try_emplace(state).first;
  if (!latest_->second) latest_->second = attributesWithLink(nullptr);
  return latest_->second;
}

// Links are told apart as objects, so what is remembered of one serves no other.
const Owned<NSDictionary>& AttributeMemo::current() {
  const Owned<NSDictionary>& known = withoutLink();
  if (linkString == nullptr) return known;
  linked_ = attributesOf(NSDictionary::objectForKey(known, NSFontAttributeName),
                         NSDictionary::objectForKey(known, NSUnderlineStyleAttributeName), linkString);
  return linked_;
}

}  // namespace html
