// Services of arrays.
#include "host/runtime/array.hpp"

#include "host/runtime/conversion.hpp"
#include "host/runtime/service.hpp"
#include "host/runtime/variant.hpp"

namespace host {
namespace {

// The code by which plug-ins ask for an array of variants; they ask for no other.
constexpr int32_t variantElements = 4;

HostObject* create(int32_t elementType, int64_t upperBound) {
  if (elementType != variantElements) return nullptr;
  return makeArray(typeNamed("Variant"), upperBound).detach();
}

void insert(HostObject* array, int64_t index, HostObject* element) {
  if (isArray(array)) insertElement(array, index, unboxed(element));
}

int64_t bound(HostObject* array) { return isArray(array) ? upperBound(array) : -1; }

// One element, its reference the caller's.
template <class Result>
Result get(HostObject* array, int64_t index);

template <>
int64_t get(HostObject* array, int64_t index) {
  return toInteger(element(array, index));
}
template <>
float get(HostObject* array, int64_t index) {
  return static_cast<float>(toDouble(element(array, index)));
}
template <>
double get(HostObject* array, int64_t index) {
  return toDouble(element(array, index));
}
template <>
bool get(HostObject* array, int64_t index) {
  return toBoolean(element(array, index));
}
template <>
HostString* get(HostObject* array, int64_t index) {
  return toString(element(array, index)).detach();
}
template <>
HostText* get(HostObject* array, int64_t index) {
  const Value value = element(array, index);
  return value.isText() ? retain(value.asText()).detach() : HostText::make(toUtf8(value)).detach();
}
template <>
HostObject* get(HostObject* array, int64_t index) {
  return boxed(element(array, index)).detach();
}

template <class Result>
using Getter = Result (*)(HostObject*, int64_t);

// The kinds of integer have a service each, which all hand out the same getter.
enum class Sort { plain, wide };

template <class Result, Sort = Sort::plain>
Getter<Result> getter(HostObject* array) {
  return isArray(array) ? &get<Result> : nullptr;
}

}  // namespace

std::span<const Service> arrayServices() {
  static const Service list[] = {
      service<create>("RuntimeArrayCreateSingleDimBoundedArray"),
      service<insert>("PluginObjectArrayInsertProc"),
      service<bound>("RuntimeUBound"),
      service<getter<int64_t>>("PluginIntegerArrayGetProc"),
      service<getter<int64_t, Sort::wide>>("PluginInt64ArrayGetProc"),
      service<getter<float>>("PluginSingleArrayGetProc"),
      service<getter<double>>("PluginDoubleArrayGetProc"),
      service<getter<HostString*>>("PluginStringArrayGetProc"),
      service<getter<HostObject*>>("PluginObjectArrayGetProc"),
      service<getter<bool>>("PluginBooleanArrayGetProc"),
      service<getter<HostText*>>("PluginTextArrayGetProc"),
  };
  return list;
}

}  // namespace host
