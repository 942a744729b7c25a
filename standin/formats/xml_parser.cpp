// The XML library's event interface, fed in pieces.
#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstring>
#include <memory>
#include <utility>
#include <vector>

#include "standin/formats/xml.hpp"
#include "standin/formats/xml_scopes.hpp"

namespace standin::formats::xml {
namespace {

constexpr int mostDepth = 2000;
// The parser compares each attribute with those before it.
constexpr size_t mostAttributes = 1000;
// Of all elements together: far more than real documents have, whose elements have a few.
constexpr size_t mostComparisons(size_t bytes) { return 16 * bytes + (size_t{4} << 20); }
// Bytes of all names together, some twenty times those of the richest format.
constexpr size_t mostNameBytes = 300'000;

std::string_view viewOf(const xmlChar* text) {
  return text != nullptr ? reinterpret_cast<const char*>(text) : std::string_view();
}

// A document's bytes as those of an encoding in which ASCII is itself, as which most come. Of UTF-16 it is one byte for each
// unit: what is beyond ASCII is of no interest here.
class Narrowed {
 public:
  std::string_view of(std::string_view bytes) {
    if (order_ == Order::unknown && bytes.size() > 1) order_ = orderOf(bytes);
    if (order_ != Order::bigEndian && order_ != Order::littleEndian) return bytes;
    narrow_.clear();
    for (const char byte : bytes) add(byte);
    return narrow_;
  }

 private:
  enum class Order { unknown, narrow, bigEndian, littleEndian };

  // By the mark, or as the first sign is one of ASCII.
  static Order orderOf(std::string_view bytes) {
    const auto first = static_cast<uint8_t>(bytes[0]), second = static_cast<uint8_t>(bytes[1]);
    if (first == 0 || (first == 0xFE && second == 0xFF)) return Order::bigEndian;
    return second == 0 || (first == 0xFF && second == 0xFE) ? Order::littleEndian : Order::narrow;
  }
  void add(char byte) {
    if (std::exchange(hasHalf_, !hasHalf_)) {
      const bool isBig = order_ == Order::bigEndian;
      narrow_ += (isBig ? half_ : byte) == 0 ? (isBig ? byte : half_) : 'x';
    }
    half_ = byte;
  }

  Order order_ = Order::unknown;
  bool hasHalf_ = false;
  char half_ = 0;  // the first one of a unit whose second has not come
  std::string narrow_;
};

// Counts the attributes of the tag in which the bytes so far end: too many are refused before the parser compares them.
class TagWatch {
 public:
  void add(std::string_view bytes) {
    if (const size_t start = bytes.rfind('<'); start != bytes.npos) {
      *this = {};
      isInTag_ = true;
      bytes.remove_prefix(start + 1);
    }
    for (size_t at = 0; isInTag_ && at < bytes.size(); ++at) add(bytes[at]);
  }
  bool hasTooMany() const { return isInTag_ && attributes_ > mostAttributes; }

 private:
  void add(char byte) {
    if (quote_ != 0) {
      if (byte == quote_) quote_ = 0;
    } else if (byte == '"' || byte == '\'') {
      quote_ = byte;
    } else if (byte == '=') {
      ++attributes_;
    } else if (byte == '>') {
      isInTag_ = false;
    }
  }

  bool isInTag_ = false;
  char quote_ = 0;  // that the byte before is inside of
  size_t attributes_ = 0;
};

class Parse {
 public:
  Parse(const Source& source, const NameTable& names, Handler& handler)
      : source_(source), scopes_(names), handler_(handler) {}

  bool run() {
    const std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)> parser(
        xmlCreateIOParserCtxt(nullptr, nullptr, read, nullptr, this, XML_CHAR_ENCODING_NONE), xmlFreeParserCtxt);
    if (parser == nullptr) return false;
    parser_ = parser.get();
    *parser_->sax = events();
    parser_->userData = this;
    // Entities in attributes are put in place; there are none but XML's own five.
    xmlCtxtUseOptions(parser_, XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_HUGE);
    xmlDictSetLimit(parser_->dict, mostNameBytes);
    xmlParseDocument(parser_);
    return parser_->wellFormed != 0 && any_ && !failed_;
  }

  std::exception_ptr fault;

 private:
  static xmlSAXHandler events() {
    xmlSAXHandler events{};
    events.initialized = 1;  // names come with their prefixes, which the parser would take a quarter longer to resolve
    events.startElement = start;
    events.endElement = end;
    events.characters = events.ignorableWhitespace = events.cdataBlock = characters;
    events.processingInstruction = instruction;
    events.getEntity = entity;
    return events;
  }
  static Parse& self(void* context) { return *static_cast<Parse*>(context); }

  // What a handler throws must not pass through the parser's frames. Nothing is handed over behind a failure, and the
  // parser is given no more bytes.
  template <class Function>
  void guarded(Function function) {
    if (failed_) return;
    heard_ = fed_;
    try {
      function();
    } catch (...) {
      fault = std::current_exception();
      failed_ = true;
    }
  }

  static int read(void* context, char* to, int most) {
    Parse& parse = self(context);
    if (!parse.failed_ && parse.isPastBounds()) parse.failed_ = true;
    return parse.feed(to, most);
  }
  static void start(void* context, const xmlChar* name, const xmlChar** attributes) {
    self(context).guarded([&] { self(context).startElement(reinterpret_cast<const char*>(name), attributes); });
  }
  static void end(void* context, const xmlChar*) {
    self(context).guarded([&] { self(context).endElement(); });
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

  // In comments and the like, "<" starts no tag.
  bool isInMarkup() const {
    constexpr std::array others{XML_PARSER_COMMENT, XML_PARSER_CDATA_SECTION, XML_PARSER_PI, XML_PARSER_DTD};
    return std::find(others.begin(), others.end(), parser_->instate) == others.end();
  }
  bool isPastBounds() const {
    return handler_.isFull() || fed_ - heard_ > source_.mostAtOnce || (watch_.hasTooMany() && isInMarkup());
  }
  // All that is asked for, while there is any: the parser refuses a character of which a part is missing.
  int feed(char* to, int most) {
    int count = 0;
    try {
      for (int piece = 1; !failed_ && piece > 0 && count < most; count += std::max(piece, 0)) {
        piece = source_.read(to + count, most - count);
        if (piece < 0) failed_ = true;
      }
    } catch (...) {
      fault = std::current_exception();
      failed_ = true;
    }
    fed_ += static_cast<size_t>(count);
    watch_.add(narrowed_.of({to, static_cast<size_t>(count)}));
    return failed_ ? -1 : count;
  }

  // Attributes are names and values by turns, with a nil behind the last; nil when there are none.
  void startElement(const char* name, const xmlChar** attributes) {
    any_ = true;
    open_.push_back({unknownName, false});
    if (attributes != nullptr) declareNamespaces(attributes);
    const Scopes::Known known = scopes_.element(name);
    open_.back().name = known.number;
    attributes_.clear();
    size_t count = 0;
    for (; attributes != nullptr && *attributes != nullptr; attributes += 2, ++count) {
      const NameNumber number = scopes_.attribute(reinterpret_cast<const char*>(attributes[0]));
      if (number != unknownName) attributes_.push_back({number, viewOf(attributes[1])});
    }
    comparisons_ += count * count;
    if (count > mostAttributes || comparisons_ > mostComparisons(fed_) || open_.size() > mostDepth) failed_ = true;
    if (!failed_) handler_.startElement({known.number, known.local, attributes_});
  }
  void declareNamespaces(const xmlChar** attributes) {
    constexpr std::string_view declaration = "xmlns";
    for (; *attributes != nullptr; attributes += 2) {
      if (**attributes != 'x') continue;  // most are none
      std::string_view name = viewOf(attributes[0]);
      if (!name.starts_with(declaration)) continue;
      name.remove_prefix(declaration.size());
      if (!name.empty() && name[0] != ':') continue;
      if (!std::exchange(open_.back().declares, true)) scopes_.open();
      if (!scopes_.declare(name.empty() ? name : name.substr(1), viewOf(attributes[1]))) failed_ = true;
    }
  }
  void endElement() {
    const OpenElement element = open_.back();
    open_.pop_back();
    if (element.declares) scopes_.close();
    handler_.endElement(element.name);
  }

  struct OpenElement {
    NameNumber name;
    bool declares;  // namespaces
  };

  const Source& source_;
  Scopes scopes_;
  Handler& handler_;
  xmlParserCtxtPtr parser_ = nullptr;
  Narrowed narrowed_;
  TagWatch watch_;
  std::vector<OpenElement> open_;
  std::vector<Attribute> attributes_;
  size_t fed_ = 0, heard_ = 0;  // bytes: in all, and when the parser last had something to say
  size_t comparisons_ = 0;      // that the parser made of attributes
  bool any_ = false, failed_ = false;
};

}  // namespace

bool parse(const Source& source, const NameTable& names, Handler& handler) {
  Parse parsing(source, names, handler);
  const bool isGood = parsing.run();
  if (parsing.fault) std::rethrow_exception(parsing.fault);
  return isGood;
}

bool parse(std::span<const uint8_t> bytes, const NameTable& names, Handler& handler) {
  if (bytes.size() > INT_MAX) return false;
  size_t at = 0;
  const auto read = [&](char* to, int most) {
    const size_t count = std::min(bytes.size() - at, static_cast<size_t>(most));
    std::copy_n(bytes.begin() + static_cast<ptrdiff_t>(at), count, to);
    at += count;
    return static_cast<int>(count);
  };
  return parse({read, bytes.size()}, names, handler);
}

}  // namespace standin::formats::xml
