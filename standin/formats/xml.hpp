// XML of documents, read as a stream of elements: nothing outside the bytes is fetched, entities of the document's own are
// not known.
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

namespace standin::formats::xml {

// What a reader knows a name by: an enumerator of its own, from 0. Names that it does not know are `unknownName`.
using NameNumber = int;
inline constexpr NameNumber unknownName = -1;

struct Namespace {
  std::string_view uri;
  std::string_view prefix;  // of the names in the reader's table, whatever prefix a document uses
};
struct Name {
  std::string_view qualified;  // "w:p"; "p" without a namespace
  NameNumber number;
};
// Several namespaces may have one prefix.
class NameTable {
 public:
  NameTable(std::initializer_list<Namespace> namespaces, std::initializer_list<Name> names);
  NameNumber find(std::string_view uri, std::string_view local) const;

 private:
  std::unordered_map<std::string_view, std::string_view> prefixes_;
  std::unordered_map<std::string, NameNumber> numbers_;
};

struct Attribute {
  NameNumber name;
  std::string_view value;  // UTF-8
};
struct Element {
  NameNumber name;
  std::string_view local;                 // without its prefix, for elements that are not in the table
  std::span<const Attribute> attributes;  // those whose names are known

  // Nothing when the element lacks it.
  std::optional<std::string_view> find(NameNumber attribute) const;
  // Bytes that what is kept of its values takes, in UTF-16 and for a moment twice.
  size_t cost() const;
  std::string_view value(NameNumber attribute) const { return find(attribute).value_or(std::string_view()); }
};

class Handler {
 public:
  virtual void startElement(const Element& element) = 0;
  virtual void endElement(NameNumber name) = 0;
  // UTF-8, in pieces of any length, never cut inside a character.
  virtual void characters(std::string_view text) = 0;
  virtual void processingInstruction(std::string_view /*target*/, std::string_view /*data*/) {}
  // Asked every few thousand bytes: once it is, parsing ends and has failed.
  virtual bool isFull() const { return false; }

 protected:
  ~Handler() = default;
};

struct Source {
  // Puts up to so many bytes there and says how many: none at the end, -1 when what follows is damaged.
  std::function<int(char* to, int most)> read;
  // Bytes of a single tag, comment or section of CDATA, of which the parser keeps the whole.
  size_t mostAtOnce;
};

// False when the bytes are damaged or not well-formed, are nested deeper than 2,000 elements, have an element with more than
// 1,000 attributes or more than 256 namespaces around it, have many elements with hundreds of attributes, or hold no
// element; what came before the fault was handed over.
bool parse(const Source& source, const NameTable& names, Handler& handler);
bool parse(std::span<const uint8_t> bytes, const NameTable& names, Handler& handler);

// Text as element content and attribute value: & < > and " escaped, characters that XML cannot hold left out.
void appendEscaped(std::string& out, std::u16string_view text);
void appendEscapedUTF8(std::string& out, std::string_view text);

}  // namespace standin::formats::xml
