// Walks the normalised source, text run by text run and tag by tag.
#include "html/reader.hpp"

#include "html/attributes.hpp"
#include "html/entities.hpp"
#include "html/scanner.hpp"
#include "html/tags.hpp"
#include "html/text.hpp"
#include "html/whitespace.hpp"

namespace html {

namespace {

// Goes past every entity that is found where the one before it ended, each tried once.
bool appendEntities(Scanner& scanner, StyledText& text) {
  if (keywordDictionary == nullptr) return false;
  bool found = false;
  for (const Entity& entity : entities) {
    if (!scanner.word(entity.name)) continue;
    text.append(entity.replacement);
    found = true;
  }
  return found;
}

void appendText(std::u16string_view source, StyledText& text) {
  Scanner scanner(source);
  while (!scanner.atEnd()) {
    text.append(scanner.upTo(u'&'));
    if (!appendEntities(scanner, text)) text.append(scanner.run(u'&'));
  }
}

}  // namespace

Owned<NSMutableAttributedString> read(NSString* source) {
  resetStyle();
  Units units(source);
  const std::u16string_view normal = normalize(units);
  StyledText text(units.data());
  AttributeMemo attributes;
  Scanner scanner(normal);
  while (!scanner.atEnd()) {
    const std::u16string_view run = scanner.upTo(u'<');
    if (!run.empty()) {
      const std::size_t start = text.length();
      appendText(run, text);
      text.style(start, attributes.current());
    }
    if (scanner.atEnd()) break;
    scanner.run(u'<');
    const std::u16string_view tag = scanner.upTo(u'>');
    scanner.run(u'>');
    actOnTag(tag, text);
  }
  return text.build();
}

}  // namespace html
