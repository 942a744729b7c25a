// URLs as text, by the rules of RFC 2396.
#include "standin/foundation/url_text.hpp"

#include <algorithm>
#include <vector>

namespace standin::foundation {
namespace {

bool isDigit(unsigned c) { return c >= '0' && c <= '9'; }
bool isLetter(unsigned c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isOneOf(unsigned c, std::string_view set) {
  return c < 0x80 && set.find(static_cast<char>(c)) != std::string_view::npos;
}
bool isUnreserved(unsigned c) { return isLetter(c) || isDigit(c) || isOneOf(c, "-_.!~*'()"); }

int hexadecimalDigit(unsigned c) {
  if (isDigit(c)) return static_cast<int>(c - '0');
  if (c >= 'a' && c <= 'f') return static_cast<int>(c - 'a') + 10;
  if (c >= 'A' && c <= 'F') return static_cast<int>(c - 'A') + 10;
  return -1;
}

bool isEscape(std::u16string_view units) {
  return units.size() >= 3 && hexadecimalDigit(units[1]) >= 0 && hexadecimalDigit(units[2]) >= 0;
}

size_t schemeLength(std::string_view text) {
  if (text.empty() || !isLetter(static_cast<unsigned char>(text.front()))) return 0;
  size_t length = 1;
  while (length < text.size() &&
         (isLetter(static_cast<unsigned char>(text[length])) || isDigit(static_cast<unsigned char>(text[length])) ||
          isOneOf(static_cast<unsigned char>(text[length]), "+-."))) {
    ++length;
  }
  return length < text.size() && text[length] == ':' ? length : 0;
}

// Cuts off what follows the separator, which goes too.
std::optional<std::string> cutAfter(std::string_view& text, char separator) {
  const size_t found = text.find(separator);
  if (found == std::string_view::npos) return {};
  std::string rest(text.substr(found + 1));
  text = text.substr(0, found);
  return rest;
}

std::vector<std::string_view> segmentsOf(std::string_view path) {
  std::vector<std::string_view> segments;
  for (size_t start = 0; start <= path.size();) {
    const size_t end = std::min(path.find('/', start), path.size());
    segments.push_back(path.substr(start, end - start));
    start = end + 1;
  }
  return segments;
}

// Of an absolute path: "." and ".." are carried out, those that would climb above the root are dropped.
std::string withoutDots(std::string_view path) {
  std::vector<std::string_view> kept;
  const std::vector<std::string_view> segments = segmentsOf(path);
  for (size_t index = 1; index < segments.size(); ++index) {
    const std::string_view segment = segments[index];
    const bool isLast = index + 1 == segments.size();
    if (segment == "..") {
      if (!kept.empty()) kept.pop_back();
    } else if (segment != ".") {
      kept.push_back(segment);
      continue;
    }
    if (isLast) kept.push_back({});
  }
  std::string result;
  for (const std::string_view segment : kept) result.append("/").append(segment);
  return result.empty() ? "/" : result;
}

std::string mergedPath(const UrlParts& base, const std::string& path) {
  if (base.authority && base.path.empty()) return "/" + path;
  return base.path.substr(0, base.path.rfind('/') + 1) + path;
}

}  // namespace

bool UrlParts::isOpaque() const { return scheme && !authority && (path.empty() || path.front() != '/'); }

std::string UrlParts::text() const {
  std::string result;
  if (scheme) result += *scheme + ":";
  if (authority) result += "//" + *authority;
  result += path;
  if (query) result += "?" + *query;
  if (fragment) result += "#" + *fragment;
  return result;
}

bool isLegalUrl(std::u16string_view units) {
  for (size_t index = 0; index < units.size(); ++index) {
    const char16_t unit = units[index];
    if (unit == '%' ? !isEscape(units.substr(index)) : !isUnreserved(unit) && !isOneOf(unit, ";/?:@&=+$,[]#")) return false;
  }
  return !units.empty() && std::count(units.begin(), units.end(), u'#') <= 1;
}

UrlParts parseUrl(std::string_view text) {
  UrlParts parts;
  parts.fragment = cutAfter(text, '#');
  if (const size_t length = schemeLength(text); length > 0) {
    parts.scheme = text.substr(0, length);
    text.remove_prefix(length + 1);
  }
  if (!parts.scheme || text.starts_with('/')) parts.query = cutAfter(text, '?');
  if (text.starts_with("//")) {
    text.remove_prefix(2);
    const size_t end = std::min(text.find('/'), text.size());
    parts.authority = text.substr(0, end);
    text.remove_prefix(end);
  }
  parts.path = text;
  return parts;
}

UrlParts resolveUrl(const UrlParts& base, const UrlParts& reference) {
  if (reference.scheme) return reference;
  UrlParts result = reference;
  result.scheme = base.scheme;
  if (reference.authority) return result;
  result.authority = base.authority;
  if (reference.path.empty()) {
    result.path = base.path;
    if (!reference.query) result.query = base.query;
    return result;
  }
  const std::string path = reference.path.front() == '/' ? reference.path : mergedPath(base, reference.path);
  result.path = path.front() == '/' ? withoutDots(path) : path;
  return result;
}

std::string escapedPath(std::string_view bytes) {
  static constexpr char digits[] = "0123456789ABCDEF";
  std::string text;
  for (const char byte : bytes) {
    const auto c = static_cast<unsigned char>(byte);
    if (isUnreserved(c) || isOneOf(c, "/:@&=+$,")) {
      text += byte;
    } else {
      text.append({'%', digits[c >> 4], digits[c & 15]});
    }
  }
  return text;
}

std::string unescaped(std::string_view text) {
  std::string bytes;
  for (size_t index = 0; index < text.size(); ++index) {
    const int high =
        text[index] == '%' && index + 2 < text.size() ? hexadecimalDigit(static_cast<unsigned char>(text[index + 1])) : -1;
    const int low = high >= 0 ? hexadecimalDigit(static_cast<unsigned char>(text[index + 2])) : -1;
    if (low < 0) {
      bytes += text[index];
    } else {
      bytes += static_cast<char>(high * 16 + low);
      index += 2;
    }
  }
  return bytes;
}

Authority parseAuthority(std::string_view text) {
  Authority authority;
  if (const size_t at = text.rfind('@'); at != std::string_view::npos) {
    std::string_view user = text.substr(0, at);
    authority.password = cutAfter(user, ':');
    authority.user = user;
    text.remove_prefix(at + 1);
  }
  const size_t colon = text.rfind(':');
  const size_t bracket = text.rfind(']');
  if (colon != std::string_view::npos && (bracket == std::string_view::npos || colon > bracket)) {
    authority.port = text.substr(colon + 1);
    text = text.substr(0, colon);
  }
  authority.host = text;
  return authority;
}

}  // namespace standin::foundation
