// Strings as the language sees them.
#include "host/language/strings.hpp"

#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include "host/language/conversion.hpp"
#include "host/runtime/encoding.hpp"

namespace language {

Characters charactersOf(std::string_view utf8) {
  const icu::UnicodeString units = icu::UnicodeString::fromUTF8(utf8);
  Characters characters(static_cast<size_t>(units.countChar32()), U'\0');
  UErrorCode error = U_ZERO_ERROR;
  units.toUTF32(reinterpret_cast<UChar32*>(characters.data()), static_cast<int32_t>(characters.size()), error);
  return characters;
}

std::string utf8Of(const Characters& characters) {
  std::string utf8;
  const auto* const units = reinterpret_cast<const UChar32*>(characters.data());
  return icu::UnicodeString::fromUTF32(units, static_cast<int32_t>(characters.size())).toUTF8String(utf8);
}

Value stringLike(const Value& model, std::string_view utf8) {
  return model.isText() ? Value::text(host::HostText::make(utf8)) : Value::string(utf8);
}

Value joined(const Value& left, const Value& right) {
  if (left.isString() && right.isString()) {
    const host::HostString* const one = left.asString();
    const host::HostString* const other = right.asString();
    if (one == nullptr) return right;
    if (other == nullptr) return left;
    if (one->encoding == other->encoding) {
      return Value::string(host::HostString::make(std::string(one->bytes()).append(other->bytes()), one->encoding));
    }
  }
  return stringLike(left.isText() && right.isText() ? left : Value(), host::toUtf8(left) + host::toUtf8(right));
}

int orderStrings(const Value& left, const Value& right, CaseRule rule) {
  const std::string one = host::toUtf8(left);
  const std::string other = host::toUtf8(right);
  return rule == CaseRule::Respected ? one.compare(other) : host::foldedCase(one).compare(host::foldedCase(other));
}

Characters folded(Characters characters) {
  for (char32_t& character : characters) {
    character = static_cast<char32_t>(u_foldCase(static_cast<UChar32>(character), U_FOLD_CASE_DEFAULT));
  }
  return characters;
}

}  // namespace language
