// Values and the table of their kinds.
#include "host/runtime/value.hpp"

namespace host {
namespace {

struct KindRow {
  const char* typeName;
  int typeCode;
  size_t elementSize;
  size_t nativeSize;
};

constexpr KindRow kindRows[] = {
#define HOST_KIND(name, typeName, code, size, Native) {typeName, code, size, sizeof(Native)},
    HOST_KINDS(HOST_KIND)
#undef HOST_KIND
};

const KindRow& row(Kind kind) { return kindRows[static_cast<size_t>(kind)]; }

}  // namespace

const char* typeName(Kind kind) { return row(kind).typeName; }
int typeCode(Kind kind) { return row(kind).typeCode; }
size_t elementSize(Kind kind) { return row(kind).elementSize; }
size_t nativeSize(Kind kind) { return row(kind).nativeSize; }

Value Value::boolean(bool value) { return adoptWord(Kind::Boolean, value ? 1 : 0); }
Value Value::integer(int64_t value, Kind kind) { return adoptWord(kind, static_cast<uint64_t>(value)); }
Value Value::unsignedInteger(uint64_t value, Kind kind) { return adoptWord(kind, value); }

Value Value::single(float value) {
  Value result;
  result.kind_ = Kind::Single;
  result.bits_.single = value;
  return result;
}

Value Value::number(double value, Kind kind) {
  Value result;
  result.kind_ = kind;
  result.bits_.number = value;
  return result;
}

Value Value::string(HostOwned<HostString> value) {
  Value result;
  result.kind_ = Kind::String;
  result.bits_.string = value.detach();
  return result;
}

Value Value::text(HostOwned<HostText> value) {
  Value result;
  result.kind_ = Kind::Text;
  result.bits_.text = value.detach();
  return result;
}

Value Value::object(HostOwned<HostObject> value) {
  Value result;
  if (!value) return result;
  result.kind_ = Kind::Object;
  result.bits_.object = value.detach();
  return result;
}

// Narrow kinds are extended to the whole word, whatever the bytes above them hold.
Value Value::adoptWord(Kind kind, uint64_t word) {
  Value result;
  if (kind == Kind::Object && word == 0) return result;
  result.kind_ = kind;
  if (kind == Kind::Boolean) {
    result.bits_.boolean = (word & 0xFF) != 0;
  } else if (kind == Kind::Int32) {
    result.bits_.integer = static_cast<int32_t>(word);
  } else if (kind == Kind::UInt32) {
    result.bits_.unsignedInteger = static_cast<uint32_t>(word);
  } else {
    result.bits_.unsignedInteger = word;
  }
  return result;
}

Value::Value(const Value& other) : kind_(other.kind_), bits_(other.bits_) {
  if (kind_ == Kind::Object) {
    bits_.object->lock();
  } else if (kind_ == Kind::String && bits_.string != nullptr) {
    bits_.string->lock();
  } else if (kind_ == Kind::Text && bits_.text != nullptr) {
    bits_.text->lock();
  }
}

void Value::drop() {
  if (kind_ == Kind::Object) {
    bits_.object->unlock();
  } else if (kind_ == Kind::String) {
    if (bits_.string != nullptr) bits_.string->unlock();
  } else if (bits_.text != nullptr) {
    bits_.text->unlock();
  }
}

}  // namespace host
