// A value of the host's language, with the ownership of what it refers to.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "host/runtime/object.hpp"
#include "host/runtime/string.hpp"

namespace host {

// The kinds of value, with the type names that declarations use, the type code of a variant that holds one, the bytes that
// one takes as an array element, and the C++ type that functions take and return. Any other type name is a class, whose
// values are of the kind Object.
#define HOST_KINDS(X)                    \
  X(Nil, "", 0, 8, HostObject*)          \
  X(Boolean, "Boolean", 11, 1, bool)     \
  X(Int32, "Int32", 2, 8, int32_t)       \
  X(UInt32, "UInt32", 2, 8, uint32_t)    \
  X(Integer, "Integer", 3, 8, int64_t)   \
  X(UInt64, "UInt64", 3, 8, uint64_t)    \
  X(Single, "Single", 4, 4, float)       \
  X(Double, "Double", 5, 8, double)      \
  X(Currency, "Currency", 6, 8, double)  \
  X(Color, "Color", 16, 8, int64_t)      \
  X(Pointer, "Ptr", 3, 8, void*)         \
  X(String, "String", 8, 8, HostString*) \
  X(Text, "Text", 37, 8, HostText*)      \
  X(Object, "Object", 9, 8, HostObject*)

enum class Kind : uint8_t {
#define HOST_KIND(name, typeName, code, size, Native) name,
  HOST_KINDS(HOST_KIND)
#undef HOST_KIND
};

const char* typeName(Kind kind);
int typeCode(Kind kind);
size_t elementSize(Kind kind);
size_t nativeSize(Kind kind);

class Value {
 public:
  Value() = default;
  static Value boolean(bool value);
  // Every kind of integer, and colours.
  static Value integer(int64_t value, Kind kind = Kind::Integer);
  static Value unsignedInteger(uint64_t value, Kind kind = Kind::UInt64);
  static Value single(float value);
  static Value number(double value, Kind kind = Kind::Double);
  static Value string(HostOwned<HostString> value);
  static Value string(std::string_view utf8) { return string(HostString::make(utf8)); }
  static Value text(HostOwned<HostText> value);
  // A nil object gives the nil value.
  static Value object(HostOwned<HostObject> value);
  // The value as it lies in memory, in the low bytes of a word; a reference in it is taken over.
  static Value adoptWord(Kind kind, uint64_t word);

  Value(const Value& other);
  Value(Value&& other) noexcept : kind_(other.kind_), bits_(other.bits_) { other.kind_ = Kind::Nil; }
  Value& operator=(Value other) noexcept {
    std::swap(kind_, other.kind_);
    std::swap(bits_, other.bits_);
    return *this;
  }
  ~Value() {
    if (kind_ >= Kind::String) drop();
  }

  Kind kind() const { return kind_; }
  bool isNil() const { return kind_ == Kind::Nil; }
  // Also Currency.
  bool isFloating() const { return kind_ >= Kind::Single && kind_ <= Kind::Currency; }
  bool isInteger() const {
    return (kind_ >= Kind::Int32 && kind_ <= Kind::UInt64) || kind_ == Kind::Color || kind_ == Kind::Pointer;
  }
  bool isNumber() const { return isFloating() || isInteger(); }
  bool isString() const { return kind_ == Kind::String; }
  bool isText() const { return kind_ == Kind::Text; }
  bool isObject() const { return kind_ == Kind::Object; }

  // Each REQUIRES the kind that it names; the references stay the value's.
  bool asBoolean() const { return bits_.boolean; }
  int64_t asInteger() const { return bits_.integer; }
  uint64_t asUnsigned() const { return bits_.unsignedInteger; }
  float asSingle() const { return bits_.single; }
  double asDouble() const { return bits_.number; }
  HostString* asString() const { return bits_.string; }
  HostText* asText() const { return bits_.text; }
  // The value as it lies in memory; a reference in it stays the value's.
  uint64_t word() const { return bits_.unsignedInteger; }
  // Gives the reference in the value to the caller, and leaves nil.
  [[nodiscard]] uint64_t detachWord() {
    kind_ = Kind::Nil;
    return std::exchange(bits_.unsignedInteger, 0);
  }
  // Nil for the nil value too.
  HostObject* asObject() const { return kind_ == Kind::Object ? bits_.object : nullptr; }

 private:
  union Bits {
    uint64_t unsignedInteger = 0;
    int64_t integer;
    bool boolean;
    float single;
    double number;
    HostString* string;
    HostText* text;
    HostObject* object;
  };
  void drop();

  Kind kind_ = Kind::Nil;
  Bits bits_;
};

}  // namespace host
