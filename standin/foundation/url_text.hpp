// URLs as text: what is legal in one, its parts, percent escapes, and resolving one against another.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace standin::foundation {

// The parts of a URL, escapes and all. Absent is not the same as empty: "a?" has an empty query.
struct UrlParts {
  std::optional<std::string> scheme;
  std::optional<std::string> authority;
  std::string path;  // in an opaque URL ("mailto:…") all that follows the scheme
  std::optional<std::string> query;
  std::optional<std::string> fragment;

  // A scheme that no slash follows: the URL has no path, host or query.
  bool isOpaque() const;
  std::string text() const;
};

// Only characters that a URL may hold, every "%" with its two hexadecimal digits, at most one "#", and not empty.
bool isLegalUrl(std::u16string_view units);

UrlParts parseUrl(std::string_view text);

// What the reference means seen from the base.
UrlParts resolveUrl(const UrlParts& base, const UrlParts& reference);

// Escapes the bytes that may not stand for themselves in a path, ";" and "?" among them; "/" stays.
std::string escapedPath(std::string_view bytes);
// The bytes that the escapes stand for.
std::string unescaped(std::string_view text);

// "user:password@host:port", taken apart; escapes are kept.
struct Authority {
  std::optional<std::string> user, password;
  std::string host;
  std::optional<std::string> port;
};
Authority parseAuthority(std::string_view text);

}  // namespace standin::foundation
