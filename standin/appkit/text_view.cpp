// NSTextView, NSTextContainer and NSLayoutManager: the way from a view to its text.
#include "standin/appkit/text_view.hpp"

#include "standin/runtime/class_object.hpp"

namespace standin::appkit {
namespace {

NSTextStorage* textStorage(LayoutManager& self) { return self.storage; }
NSLayoutManager* layoutManager(TextContainer& self) { return self.manager; }

const ClassDefinition managers =
    defineClass<LayoutManager>("NSLayoutManager", "NSObject").method<textStorage>("textStorage");
const ClassDefinition containers =
    defineClass<TextContainer>("NSTextContainer", "NSObject").method<layoutManager>("layoutManager");

NSObject* initWithFrame(NSObject* self, NSRect frame) {
  textViewState(self).frame = frame;
  return self;
}

NSRect frame(TextView& self) { return self.frame; }
NSTextContainer* textContainer(TextView& self) { return self.container; }
NSTextStorage* viewStorage(TextView& self) { return self.storage; }

// These say how the view behaves under someone's typing, which nobody does to a view without a window.
void ignoreTyping(NSObject*, BOOL) {}

const ClassDefinition textViews = defineClass<TextView>("NSTextView", "NSText")
                                      .method<initWithFrame>("initWithFrame:")
                                      .method<frame>("frame")
                                      .method<textContainer>("textContainer")
                                      .method<viewStorage>("textStorage")
                                      .method<ignoreTyping>("setRichText:")
                                      .method<ignoreTyping>("setImportsGraphics:")
                                      .method<ignoreTyping>("setAutomaticQuoteSubstitutionEnabled:")
                                      .method<ignoreTyping>("setAutomaticLinkDetectionEnabled:")
                                      .method<ignoreTyping>("setAutomaticDataDetectionEnabled:")
                                      .method<ignoreTyping>("setAutomaticDashSubstitutionEnabled:")
                                      .method<ignoreTyping>("setAutomaticTextReplacementEnabled:")
                                      .method<ignoreTyping>("setAutomaticSpellingCorrectionEnabled:");

// Sent after each page that is printed; for views that want to know.
void endPage(NSObject*) {}
[[maybe_unused]] const Category views = Category("NSView").method<endPage>("endPage");

}  // namespace

TextView::TextView()
    : storage(adopt(static_cast<NSTextStorage*>(NSObject::init(alloc<NSTextStorage>())))),
      manager(create<LayoutManager, NSLayoutManager>(managers)),
      container(create<TextContainer, NSTextContainer>(containers)) {
  stateOf<LayoutManager>(manager).storage = storage;
  stateOf<TextContainer>(container).manager = manager;
}

TextView::~TextView() {
  if (manager) stateOf<LayoutManager>(manager).storage = nullptr;
  if (container) stateOf<TextContainer>(container).manager = nullptr;
}

bool isTextView(NSObject* object) { return isKindOf(object, textViews.object()); }
TextView& textViewState(NSObject* view) { return stateOf<TextView>(view); }

}  // namespace standin::appkit
