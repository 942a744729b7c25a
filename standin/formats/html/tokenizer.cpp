// Tags and texts.
#include "standin/formats/html/tokenizer.hpp"

#include <algorithm>
#include <cstring>

#include "standin/formats/html/ascii.hpp"
#include "standin/formats/html/character_references.hpp"

namespace standin::formats::html {
namespace {

std::string_view between(const char* begin, const char* end) { return {begin, static_cast<size_t>(end - begin)}; }

char* find(char* begin, char* end, char wanted) {
  void* found = std::memchr(begin, wanted, static_cast<size_t>(end - begin));
  return found != nullptr ? static_cast<char*>(found) : end;
}

std::string_view decoded(char* begin, char* end, ReferencePlace place) {
  char* first = find(begin, end, '&');
  return between(begin, first == end ? end : decodeReferences(first, end, place));
}

}  // namespace

bool Tokenizer::next(Token& token) {
  if (isRaw_ && readRaw(token)) return true;
  while (at_ < end_) {
    if (!startsTag(at_)) {
      readText(token);
      return true;
    }
    const char second = at_[1];
    if (second == '!' && at_ + 3 < end_ && at_[2] == '-' && at_[3] == '-') {
      skipComment();
    } else if (second == '!' || second == '?' || (second == '/' && !(at_ + 2 < end_ && isASCIILetter(at_[2])))) {
      skipDeclaration();
    } else if (readTag(token)) {
      return true;
    }
  }
  return false;
}

// "<" alone is a character.
bool Tokenizer::startsTag(const char* at) const {
  return *at == '<' && at + 1 < end_ && (isASCIILetter(at[1]) || at[1] == '/' || at[1] == '!' || at[1] == '?');
}

void Tokenizer::readText(Token& token) {
  char* const begin = at_;
  do {
    at_ = find(at_ + 1, end_, '<');
  } while (at_ < end_ && !startsTag(at_));
  token.kind = Token::text;
  token.characters = decoded(begin, at_, ReferencePlace::text);
}

void Tokenizer::takeRaw(std::string_view name, bool decodesReferences) {
  isRaw_ = true;
  rawName_ = name;
  rawDecodes_ = decodesReferences;
}

bool Tokenizer::readRaw(Token& token) {
  isRaw_ = false;
  char* const begin = at_;
  const auto isEnd = [this](const char* at) {
    const size_t length = rawName_.size();
    const auto left = static_cast<size_t>(end_ - at);
    return length > 0 && left > length + 2 && at[1] == '/' && equalIgnoringCase({at + 2, length}, rawName_) &&
           !isASCIIAlphanumeric(at[2 + length]);
  };
  at_ = find(at_, end_, '<');
  while (at_ < end_ && !isEnd(at_)) at_ = find(at_ + 1, end_, '<');
  token.kind = Token::text;
  token.characters = rawDecodes_ ? decoded(begin, at_, ReferencePlace::text) : between(begin, at_);
  return at_ != begin;
}

void Tokenizer::skipSpace() {
  while (at_ < end_ && isASCIISpace(*at_)) ++at_;
}

std::string_view Tokenizer::takeName(char* begin, char* end) {
  std::transform(begin, end, begin, [](char c) { return asciiLowercase(c); });
  return between(begin, end);
}

// A tag that the document ends in is none.
bool Tokenizer::readTag(Token& token) {
  token.kind = at_[1] == '/' ? Token::endTag : Token::startTag;
  char* const begin = at_ + (token.kind == Token::endTag ? 2 : 1);
  at_ = std::find_if(begin, end_, [](char c) { return isASCIISpace(c) || c == '/' || c == '>'; });
  token.name = takeName(begin, at_);
  token.tag = tagNamed(token.name);
  token.closesItself = false;
  token.attributes.clear();
  while (at_ < end_) {
    skipSpace();
    if (at_ == end_) break;
    if (*at_ == '>') {
      ++at_;
      return true;
    }
    token.closesItself = *at_ == '/';
    if (token.closesItself) {
      ++at_;
    } else {
      readAttribute(token);
    }
  }
  return false;
}

void Tokenizer::readAttribute(Token& token) {
  char* const begin = at_;
  at_ = std::find_if(begin + 1, end_, [](char c) { return isASCIISpace(c) || c == '/' || c == '>' || c == '='; });
  const std::string_view name = takeName(begin, at_);
  skipSpace();
  std::string_view value;
  if (at_ < end_ && *at_ == '=') {
    ++at_;
    skipSpace();
    if (at_ < end_) value = readValue();
  }
  token.attributes.push_back({name, value, attributeNamed(name)});
}

std::string_view Tokenizer::readValue() {
  const char quote = *at_;
  char* const begin = quote == '"' || quote == '\'' ? at_ + 1 : at_;
  char* const valueEnd = begin != at_ ? find(begin, end_, quote)
                                      : std::find_if(begin, end_, [](char c) { return isASCIISpace(c) || c == '>'; });
  at_ = begin != at_ && valueEnd < end_ ? valueEnd + 1 : valueEnd;
  return decoded(begin, valueEnd, ReferencePlace::attribute);
}

void Tokenizer::skipComment() {
  constexpr std::string_view end = "-->";
  // The two hyphens of "<!-->" also end it.
  const std::string_view rest = between(at_ + 2, end_);
  if (rest.starts_with("-->") || rest.starts_with("--->")) {
    at_ = find(at_, end_, '>') + 1;
    return;
  }
  const size_t found = rest.find(end, 2);
  at_ = found == std::string_view::npos ? end_ : at_ + 2 + found + end.size();
}

void Tokenizer::skipDeclaration() {
  at_ = find(at_, end_, '>');
  if (at_ < end_) ++at_;
}

}  // namespace standin::formats::html
