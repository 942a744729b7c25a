// The XML library's event interface, with names looked up once each.
#include "standin/formats/xml.hpp"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstring>
#include <memory>
#include <vector>

namespace standin::formats::xml {
namespace {

constexpr int mostDepth = 2000;

std::string_view viewOf(const xmlChar* text) {
  return text != nullptr ? reinterpret_cast<const char*>(text) : std::string_view();
}

// Names are unique addresses in the parser's dictionary.
struct NameAddress {
  const xmlChar *uri, *local;
  bool operator==(const NameAddress&) const = default;
};
struct NameAddressHash {
  size_t operator()(const NameAddress& name) const {
    return (reinterpret_cast<size_t>(name.local) >> 3) * 31 + (reinterpret_cast<size_t>(name.uri) >> 3);
  }
};

// Elements with more are refused before they are read: the parser compares each attribute with those before it.
constexpr size_t mostAttributes = 1000;

size_t endOf(std::string_view text, std::string_view mark, size_t from) {
  const size_t found = text.find(mark, from);
  return found == text.npos ? text.size() : found + mark.size();
}

// Where the tag that starts there ends; nothing when it has too many attributes.
std::optional<size_t> endOfTag(std::string_view text, size_t at) {
  size_t attributes = 0;
  for (; at < text.size() && text[at] != '>'; ++at) {
    if (text[at] == '=' && ++attributes > mostAttributes) return std::nullopt;
    if (text[at] == '"' || text[at] == '\'') at = std::min(text.find(text[at], at + 1), text.size() - 1);
  }
  return at;
}

bool hasFewAttributes(std::string_view text) {
  for (size_t at = text.find('<'); at < text.size(); at = text.find('<', at)) {
    if (text.substr(at).starts_with("<!--")) {
      at = endOf(text, "-->", at);
    } else if (text.substr(at).starts_with("<![CDATA[")) {
      at = endOf(text, "]]>", at);
    } else {
      const auto end = endOfTag(text, at);
      if (!end) return false;
      at = *end;
    }
  }
  return true;
}

class Parse {
 public:
  Parse(const NameTable& names, Handler& handler) : names_(names), handler_(handler) {}

  bool run(std::span<const uint8_t> bytes) {
    if (bytes.size() > INT_MAX) return false;
    const std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)> parser(
        xmlCreateMemoryParserCtxt(reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size())),
        xmlFreeParserCtxt);
    if (parser == nullptr) return false;
    parser_ = parser.get();
    *parser_->sax = events();
    parser_->userData = this;
    // Entities in attributes are put in place; there are none but XML's own five.
    xmlCtxtUseOptions(parser_, XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_HUGE);
    xmlParseDocument(parser_);
    return parser_->wellFormed != 0 && any_ && !tooDeep_ && !failed_;
  }

  std::exception_ptr fault;

 private:
  static xmlSAXHandler events() {
    xmlSAXHandler events{};
    events.initialized = XML_SAX2_MAGIC;
    events.startElementNs = start;
    events.endElementNs = end;
    events.characters = characters;
    events.cdataBlock = characters;
    events.processingInstruction = instruction;
    events.getEntity = entity;
    return events;
  }
  static Parse& self(void* context) { return *static_cast<Parse*>(context); }

  // What a handler throws must not pass through the parser's frames.
  template <class Function>
  void guarded(Function function) {
    if (failed_) return;
    try {
      function();
    } catch (...) {
      fault = std::current_exception();
      failed_ = true;
      xmlStopParser(parser_);
    }
  }

  static void start(void* context, const xmlChar* local, const xmlChar*, const xmlChar* uri, int, const xmlChar**, int count,
                    int, const xmlChar** attributes) {
    self(context).guarded([&] { self(context).startElement(local, uri, static_cast<size_t>(count), attributes); });
  }
  static void end(void* context, const xmlChar* local, const xmlChar*, const xmlChar* uri) {
    self(context).guarded([&] {
      --self(context).depth_;
      self(context).handler_.endElement(self(context).number(local, uri));
    });
  }
  static void characters(void* context, const xmlChar* text, int length) {
    self(context).guarded([&] {
      self(context).handler_.characters({reinterpret_cast<const char*>(text), static_cast<size_t>(length)});
    });
  }
  static void instruction(void* context, const xmlChar* target, const xmlChar* data) {
    self(context).guarded([&] { self(context).handler_.processingInstruction(viewOf(target), viewOf(data)); });
  }
  static xmlEntityPtr entity(void*, const xmlChar* name) { return xmlGetPredefinedEntity(name); }

  // An attribute is five pointers: local name, prefix, URI, start and end of the value.
  void startElement(const xmlChar* local, const xmlChar* uri, size_t count, const xmlChar** attributes) {
    any_ = true;
    if (++depth_ > mostDepth) {
      tooDeep_ = true;
      xmlStopParser(parser_);
      return;
    }
    attributes_.clear();
    for (const xmlChar** attribute = attributes; attribute != attributes + 5 * count; attribute += 5) {
      const NameNumber name = number(attribute[0], attribute[2]);
      if (name == unknownName) continue;
      const auto* value = reinterpret_cast<const char*>(attribute[3]);
      attributes_.push_back({name, {value, static_cast<size_t>(attribute[4] - attribute[3])}});
    }
    handler_.startElement({number(local, uri), viewOf(local), attributes_});
  }

  NameNumber number(const xmlChar* local, const xmlChar* uri) {
    const auto [known, isNew] = numbers_.try_emplace({uri, local}, unknownName);
    if (isNew) known->second = names_.find(viewOf(uri), viewOf(local));
    return known->second;
  }

  const NameTable& names_;
  Handler& handler_;
  xmlParserCtxtPtr parser_ = nullptr;
  std::unordered_map<NameAddress, NameNumber, NameAddressHash> numbers_;
  std::vector<Attribute> attributes_;
  int depth_ = 0;
  bool any_ = false, tooDeep_ = false, failed_ = false;
};

// What a character becomes in XML; nothing for those that stand for themselves.
std::string_view escapeOf(char32_t character) {
  switch (character) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\t':
      return "&#9;";
    case '\n':
      return "&#10;";
    case '\r':
      return "&#13;";
    default:
      return {};
  }
}

bool isAllowed(char32_t character) {
  return character >= 0x20 ? (character & 0xFFFFF800) != 0xD800 && character != 0xFFFE && character != 0xFFFF
                           : character == '\t' || character == '\n' || character == '\r';
}

// By the unit, below U+0080.
constexpr auto standsForItself = [] {
  std::array<bool, 0x80> table{};
  for (size_t unit = 0x20; unit < table.size(); ++unit)
    table[unit] = unit != '&' && unit != '<' && unit != '>' && unit != '"';
  return table;
}();

void appendCharacter(std::string& out, char32_t character) {
  if (!isAllowed(character)) return;
  if (const std::string_view escape = escapeOf(character); !escape.empty()) {
    out += escape;
    return;
  }
  char bytes[4];
  int32_t length = 0;
  U8_APPEND_UNSAFE(bytes, length, character);
  out.append(bytes, static_cast<size_t>(length));
}

}  // namespace

NameTable::NameTable(std::initializer_list<Namespace> namespaces, std::initializer_list<Name> names) {
  for (const Namespace& space : namespaces) prefixes_.emplace(space.uri, space.prefix);
  for (const Name& name : names) numbers_.emplace(name.qualified, name.number);
}

NameNumber NameTable::find(std::string_view uri, std::string_view local) const {
  std::string qualified;
  if (!uri.empty()) {
    const auto prefix = prefixes_.find(uri);
    if (prefix == prefixes_.end()) return unknownName;
    qualified = prefix->second;
    if (!qualified.empty()) qualified += ':';
  }
  const auto found = numbers_.find(qualified += local);
  return found != numbers_.end() ? found->second : unknownName;
}

std::optional<std::string_view> Element::find(NameNumber attribute) const {
  const auto found =
      std::find_if(attributes.begin(), attributes.end(), [&](const Attribute& row) { return row.name == attribute; });
  if (found == attributes.end()) return std::nullopt;
  return found->value;
}

bool parse(std::span<const uint8_t> bytes, const NameTable& names, Handler& handler) {
  if (!hasFewAttributes({reinterpret_cast<const char*>(bytes.data()), bytes.size()})) return false;
  Parse parsing(names, handler);
  const bool isGood = parsing.run(bytes);
  if (parsing.fault) std::rethrow_exception(parsing.fault);
  return isGood;
}

void appendEscaped(std::string& out, std::u16string_view text) {
  for (size_t at = 0; at < text.size();) {
    size_t end = at;
    while (end < text.size() && text[end] < 0x80 && standsForItself[text[end]]) ++end;
    const size_t old = out.size();
    out.resize(old + end - at);
    std::transform(text.begin() + static_cast<std::ptrdiff_t>(at), text.begin() + static_cast<std::ptrdiff_t>(end),
                   out.begin() + static_cast<std::ptrdiff_t>(old), [](char16_t unit) { return static_cast<char>(unit); });
    at = end;
    if (at == text.size()) return;
    UChar32 character;
    U16_NEXT(text.data(), at, text.size(), character);
    appendCharacter(out, static_cast<char32_t>(character));
  }
}

void appendEscapedUTF8(std::string& out, std::string_view text) {
  const auto* bytes = reinterpret_cast<const uint8_t*>(text.data());
  const auto length = static_cast<int32_t>(text.size());
  for (int32_t at = 0; at < length;) {
    UChar32 character;
    U8_NEXT_OR_FFFD(bytes, at, length, character);
    appendCharacter(out, static_cast<char32_t>(character));
  }
}

}  // namespace standin::formats::xml
