// Cuts the characters of an HTML document into tags and texts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "standin/formats/html/tree.hpp"

namespace standin::formats::html {

struct Token {
  enum Kind { text, startTag, endTag };
  Kind kind;
  Tag tag;
  std::string_view name;  // of the tag, in small letters
  std::string_view characters;
  bool closesItself;  // "<br/>"
  std::vector<Attribute> attributes;
};

// Works in place: references are decoded and names put into small letters where they stand.
class Tokenizer {
 public:
  explicit Tokenizer(std::string& source) : at_(source.data()), end_(source.data() + source.size()) {}

  // False at the end. Comments, declarations and instructions are passed over.
  bool next(Token& token);

  // The next token is the characters up to the end tag of this name, if there are any.
  void takeRaw(std::string_view name, bool decodesReferences);
  // The rest of the document is characters.
  void takeRest() { takeRaw({}, false); }

 private:
  bool readRaw(Token& token);
  void readText(Token& token);
  bool readTag(Token& token);
  void readAttribute(Token& token);
  std::string_view readValue();
  void skipComment();
  void skipDeclaration();
  void skipSpace();
  std::string_view takeName(char* begin, char* end);
  bool startsTag(const char* at) const;

  char* at_;
  char* const end_;
  std::string_view rawName_;
  bool isRaw_ = false, rawDecodes_ = false;
};

}  // namespace standin::formats::html
