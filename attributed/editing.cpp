// The editing members that do more than convert and send.
#include "attributed/editing.hpp"

#include "bridge/from_variant.hpp"

namespace attributed {

void updateAttachmentsFromFile(REALobject self, REALfolderItem file) {
  guarded([&] { send<Mutable::updateAttachmentsFromPath>(self, pathFromFolderItem(file)); });
}

void addAttribute(REALobject self, REALstring name, REALobject value, REALobject range) {
  guarded([&] {
    NSString* key = autoreleasedString(name);
    if (key == nullptr) return;
    NSObject* converted = GetVariantAsNSObject(value);
    if (converted != nullptr) send<Mutable::addAttribute>(self, key, converted, rangeOf(range));
  });
}

}  // namespace attributed
