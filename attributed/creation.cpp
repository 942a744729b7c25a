// The two algorithms behind every way to make an attributed string.
#include "attributed/creation.hpp"

#include "attributed/host_classes.hpp"

namespace attributed {
namespace {

// Runs the maker and leaves the document attributes, as a new host dictionary, in the variable when there is one.
class Asking {
 public:
  explicit Asking(REALdictionary** variable) : variable_(variable) {
    if (variable_ != nullptr) clearReference(variable_);
  }
  Owned<NSAttributedString> make(const Maker& maker) { return maker(variable_ == nullptr ? nullptr : &attributes_); }
  void store() {
    if (variable_ != nullptr) *variable_ = NSDictionaryRB(attributes_);
  }

 private:
  REALdictionary** variable_;
  NSDictionary* attributes_ = nullptr;
};

Owned<NSAttributedString> asHeldBy(REALobject self, Owned<NSAttributedString> made) {
  if (!made || !isInstanceOf(self, "NSMutableAttributedStringZKT")) return made;
  return adopt(static_cast<NSAttributedString*>(NSObject::mutableCopy(made.autorelease())));
}

}  // namespace

bool fill(REALobject self, Registration registration, REALdictionary** documentAttributes, const Maker& maker) {
  Asking asking(documentAttributes);
  return guarded([&] {
    emptyWrapper(self);
    auto held = asHeldBy(self, asking.make(maker));
    asking.store();
    const bool filled = static_cast<bool>(held);
    fillWrapper(self, std::move(held), registration);
    return filled;
  });
}

REALobject make(REALdictionary** documentAttributes, const Maker& maker) {
  Asking asking(documentAttributes);
  return guarded([&] {
    auto made = asking.make(maker);
    asking.store();
    return HostForm<NSAttributedString*>::result(made.autorelease());
  });
}

}  // namespace attributed
