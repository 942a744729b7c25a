// Attributed strings: the state behind each of them, and what C++ code does with them without messages.
#pragma once

#include "platform/appkit.h"
#include "standin/appkit/attributes.hpp"
#include "standin/runtime/class_definition.hpp"
#include "standin/text/styled_text.hpp"

namespace standin::appkit {

// Every NSAttributedString. `styled` changes in mutable ones alone, once they are initialised.
struct AttributedString : Object {
  AttributedString() = default;
  explicit AttributedString(text::StyledText content) : styled(std::move(content)) {}

  text::StyledText styled;
};

Owned<NSAttributedString> newAttributedString(text::StyledText styled);
Owned<NSMutableAttributedString> newMutableAttributedString(text::StyledText styled);

bool isAttributedString(NSObject* object);
// Takes any NSAttributedString but nil.
const text::StyledText& styledTextOf(NSAttributedString* string);

// Calls visit(text::RunPlace, NSDictionary*) for every run in the range, cut to it. The string must not change meanwhile.
template <class Visit>
void forEachRun(const text::StyledText& styled, uint32_t from, uint32_t count, Visit&& visit) {
  styled.forEachRun(from, count, [&](const text::RunPlace& run) { visit(run, dictionaryOf(run.attributes)); });
}

}  // namespace standin::appkit
