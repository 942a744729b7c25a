// Print settings from what a document says of itself, and the call of GeneratePDF.
#include "host/tool/pdf_pages.hpp"

#include <algorithm>
#include <cmath>

#include "host/runtime/array.hpp"
#include "host/runtime/conversion.hpp"
#include "host/runtime/dictionary.hpp"
#include "host/runtime/memory_block.hpp"
#include "host/tool/members.hpp"
#include "platform/appkit.h"

namespace tool {
namespace {

constexpr int64_t fitPagination = 1;
constexpr double viewWidth = 451;  // of the text view that the library prints, points
constexpr double defaultMargin = 72;

Value valueFor(const Value& dictionary, std::string_view key) {
  if (dictionary.isNil()) return {};
  const Value name = Value::string(key);
  return host::dictionaryHasKey(dictionary.asObject(), name) ? host::dictionaryValue(dictionary.asObject(), name) : Value();
}

// A list of words becomes one text.
Value joined(const Value& value) {
  const host::HostObject* list = value.asObject();
  if (list == nullptr || !host::isArray(list)) return value;
  std::string text;
  for (int64_t index = 0; index <= host::upperBound(list); ++index) {
    const Value word = host::element(list, index);
    if (!word.isString()) continue;
    if (!text.empty()) text += ", ";
    text += host::toUtf8(word);
  }
  return Value::string(text);
}

void setEntry(const Value& printInfo, std::string_view key, const Value& text) {
  if (text.isString()) call(printInfo, "setEntry(key as String, text as String)", {Value::string(key), text});
}

struct Margin {
  const char *attribute, *property;
};
constexpr Margin margins[] = {{"LeftMargin", "leftMargin"},
                              {"RightMargin", "rightMargin"},
                              {"TopMargin", "topMargin"},
                              {"BottomMargin", "bottomMargin"}};
constexpr const char* texts[] = {"NSTitleDocumentAttribute", "NSAuthorDocumentAttribute", "NSSubjectDocumentAttribute",
                                 "NSKeywordsDocumentAttribute"};

// Documents mark a margin that text may not grow into with a minus. A text view that is wider than the page between its
// margins is made smaller rather than cut.
Value printInfoFor(const Value& attributes) {
  Value printInfo = make("NSPrintInfoZKT");
  call(printInfo, "Constructor");
  const Value paper = valueFor(attributes, "PaperSize");
  if (classNameOf(paper) == "NSSizeZKT") set(printInfo, "paperSize", paper);
  double width = get(get(printInfo, "paperSize"), "width").asDouble();
  for (const Margin& margin : margins) {
    const Value points = valueFor(attributes, margin.attribute);
    set(printInfo, margin.property,
        Value::number(points.isNumber() ? std::max(0.0, std::abs(host::toDouble(points))) : defaultMargin));
  }
  width -= get(printInfo, "leftMargin").asDouble() + get(printInfo, "rightMargin").asDouble();
  set(printInfo, "horizontalPagination", Value::integer(width < viewWidth ? fitPagination : 0));
  set(printInfo, "horizontallyCentered", Value::boolean(false));
  set(printInfo, "verticallyCentered", Value::boolean(false));
  for (const char* key : texts) setEntry(printInfo, key, joined(valueFor(attributes, key)));
  return printInfo;
}

// Views are told of each page that was printed: text views hand that on while one of these lives.
class PageListener {
 public:
  explicit PageListener(const PageDone& pageDone) {
    static const bool isAdded =
        class_addMethod(classOf<NSTextView>(), NSView::endPage.selector(), reinterpret_cast<IMP>(&endPage), "v@:") != NO;
    static_cast<void>(isAdded);
    listener = &pageDone;
    pages = 0;
  }
  PageListener(const PageListener&) = delete;
  ~PageListener() { listener = nullptr; }

 private:
  static void endPage(NSObject*, SEL) {
    if (listener != nullptr && *listener) (*listener)(++pages);
  }
  static inline const PageDone* listener = nullptr;
  static inline int pages = 0;
};

}  // namespace

std::string pdfOf(const StyledDocument& document, const PageDone& pageDone) {
  const PageListener listening(pageDone);
  try {
    const Value pdf = call(document.text, "GeneratePDF(PrintOptions as variant = nil) as MemoryBlock",
                           {printInfoFor(document.attributes)});
    if (pdf.isNil())
      throw DocumentError{"it cannot be printed: no text fits on its paper, or there is no room for the file"};
    const auto bytes = host::memoryOf(pdf.asObject());
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
  } catch (const host::HostException& exception) {
    throw DocumentError{exception.message()};
  }
}

}  // namespace tool
