// The services that draw on more than one function of the host.
#include "plugin/services.hpp"

namespace plugin {

StringContents REALGetStringContents(REALstring text) {
  if (pStringLength == nullptr) pStringLength = loadFrameworkMethod<int64_t(REALstring)>("LenB( s as string ) as integer");
  if (pStringLength == nullptr) return {nullptr, 0};
  const char* bytes = StringGetCString(text);
  if (bytes == nullptr) return {nullptr, 0};
  return {bytes, pStringLength(text)};
}

namespace {

template <class Value>
Value readVariant(const Service<Value(REALobject)>& reader, const Service<bool(REALobject, const char*, Value*)>& property,
                  const char* name, REALobject variant) {
  if (const auto read = reader.find()) return read(variant);
  Value value{};
  return property(variant, name, &value) ? value : Value();
}

}  // namespace

int64_t GetVariantType(REALobject variant) {
  if (pVariantType == nullptr) {
    pVariantType = loadFrameworkMethod<int64_t(REALobject)>("VarType(value As Variant) As Integer");
  }
  if (pVariantType != nullptr) return pVariantType(variant);
  int64_t type = 0;
  return REALGetPropValueInteger(variant, "Type", &type) ? type : 0;
}

REALstring GetVariantString(REALobject variant) {
  return readVariant(VariantToString, REALGetPropValueString, "StringValue", variant);
}
int64_t GetVariantInt64(REALobject variant) {
  return readVariant(VariantToInt64, REALGetPropValueInt64, "LongValue", variant);
}
float GetVariantSingle(REALobject variant) {
  return readVariant(VariantToSingle, REALGetPropValueSingle, "SingleValue", variant);
}
double GetVariantDouble(REALobject variant) {
  return readVariant(VariantToDouble, REALGetPropValueDouble, "DoubleValue", variant);
}

}  // namespace plugin
