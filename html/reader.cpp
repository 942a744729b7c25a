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

// The text up to the next tag.
void appendRun(Scanner& scanner, StyledText& text) {
  const std::u16string_view plain = scanner.upTo(u'<', u'&');
  if (!scanner.isAt(u'&')) return text.append(plain);
  const std::u16string_view rest = scanner.upTo(u'<');
  appendText({plain.data(), plain.size() + rest.size()}, text);
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
    const std::size_t start = text.length();
    appendRun(scanner, text);
    if (text.length() > start) text.style(start, attributes.current());
    if (scanner.atEnd()) break;
    scanner.run(u'<');
    const std::u16string_view tag = scanner.upTo(u'>');
    scanner.run(u'>');
    actOnTag(tag, text);
  }
  return text.build();
}

}  // namespace html
