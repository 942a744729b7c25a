// NSCell and its subclasses: an image, and in the cell of an attachment the attachment.
#include "standin/appkit/cell.hpp"

#include "standin/appkit/image.hpp"
#include "standin/foundation/class_rows.hpp"
#include "standin/runtime/class_object.hpp"

namespace standin::appkit {
namespace {

NSImage* image(Cell& self) { return self.image; }
void setImage(Cell& self, NSImage* image) { self.image = retain(image); }
NSSize cellSize(Cell& self) { return sizeOf(self.image); }

NSCell* initImageCell(NSCell* self, NSImage* image) {
  stateOf<Cell>(self).image = retain(image);
  return self;
}

NSTextAttachment* attachment(Cell& self) { return self.attachment; }
void setAttachment(Cell& self, NSTextAttachment* attachment) { self.attachment = attachment; }

const ClassDefinition cellClass = defineClass<Cell>("NSCell", "NSObject")
                                      .method<initImageCell>("initImageCell:")
                                      .method<image>("image")
                                      .method<setImage>("setImage:")
                                      .method<cellSize>("cellSize");

const ClassDefinition attachmentCellClass = defineClass<Cell>("NSTextAttachmentCell", "NSCell")
                                                .method<attachment>("attachment")
                                                .method<setAttachment>("setAttachment:");

// Cells of controls, which are nothing but cells here.
constexpr foundation::ClassRow controlCells[] = {
    {"NSActionCell", "NSCell"},
    {"NSPathCell", "NSActionCell"},
    {"NSTextFieldCell", "NSActionCell"},
    {"NSPathComponentCell", "NSTextFieldCell"},
    {"NSSearchFieldCell", "NSTextFieldCell"},
    {"NSSecureTextFieldCell", "NSTextFieldCell"},
};
[[maybe_unused]] const bool areDefined = [] {
  for (const foundation::ClassRow& row : controlCells) defineClass<Cell>(row.name, row.superclass);
  return true;
}();

}  // namespace

Owned<NSCell> newAttachmentCell(NSImage* image, NSTextAttachment* attachment) {
  Owned<NSCell> cell = create<Cell, NSCell>(attachmentCellClass);
  stateOf<Cell>(cell).image = retain(image);
  stateOf<Cell>(cell).attachment = attachment;
  return cell;
}

NSImage* imageOf(NSCell* cell) { return cell != nullptr ? stateOf<Cell>(cell).image.get() : nullptr; }
bool isCell(NSObject* object) { return isKindOf(object, cellClass.object()); }

}  // namespace standin::appkit
