// NSTextStorage: gathering edits, and fixing what they touched when the last of them has ended.
#include "standin/appkit/text_storage.hpp"

#include <algorithm>
#include <utility>

#include "standin/appkit/attribute_fixing.hpp"
#include "standin/runtime/class_object.hpp"

namespace standin::appkit {
namespace {

using text::UnitRange;

// The edited range after one more edit, in the text that it leaves.
UnitRange extended(UnitRange edited, UnitRange replaced, uint32_t inserted) {
  const uint32_t start = std::min(edited.start, replaced.start), end = std::max(edited.end(), replaced.end());
  return {start, end - replaced.length + inserted - start};
}

void fixWhatWasEdited(TextStorage& self) {
  if (self.openEdits > 0 || !self.edited) return;
  fixAttributes(self.styled, *std::exchange(self.edited, std::nullopt));
}

void beginEditing(TextStorage& self) { ++self.openEdits; }

// One too many ends nothing.
void endEditing(TextStorage& self) {
  if (self.openEdits > 0) --self.openEdits;
  fixWhatWasEdited(self);
}

const ClassDefinition concreteClass = defineClass<TextStorage>("NSConcreteTextStorage", "NSTextStorage");

[[maybe_unused]] const ClassDefinition textStorageClass =
    defineClass<TextStorage>("NSTextStorage", "NSMutableAttributedString")
        .allocatesAs(concreteClass)
        .method<beginEditing>("beginEditing")
        .method<endEditing>("endEditing");

}  // namespace

void noteEdit(NSAttributedString* string, UnitRange replaced, uint32_t inserted) {
  static const ClassObject* const storages = findClass("NSTextStorage");
  if (!isKindOf(string, storages)) return;
  TextStorage& storage = stateOf<TextStorage>(string);
  storage.edited = storage.edited ? extended(*storage.edited, replaced, inserted) : UnitRange{replaced.start, inserted};
  fixWhatWasEdited(storage);
}

}  // namespace standin::appkit
