// Records as numbers of 32 bits and the bytes of values.
#include "standin/formats/word_xml/property_record.hpp"

#include <algorithm>
#include <cstring>

#include "standin/formats/word_xml/names.hpp"

namespace standin::formats::word_xml {
namespace {

// Bytes, beyond what any program writes.
constexpr size_t mostInValue = 1'000, mostInRecord = 32'000;

bool isSensible(const xml::Element& element) {
  return element.attributes.size() <= 32 && std::all_of(element.attributes.begin(), element.attributes.end(),
                                                        [](const auto& each) { return each.value.size() <= mostInValue; });
}

}  // namespace

void PropertyRecord::addNumbers(uint32_t first, uint32_t second) {
  const uint32_t numbers[] = {first, second};
  bytes_.append(reinterpret_cast<const char*>(numbers), sizeof numbers);
}

uint32_t PropertyRecord::numberAt(size_t& at) const {
  uint32_t number;
  std::memcpy(&number, bytes_.data() + at, sizeof number);
  at += sizeof number;
  return number;
}

void PropertyRecord::add(const xml::Element& element) {
  if (element.name == xml::unknownName || bytes_.size() > mostInRecord || !isSensible(element)) return;
  addNumbers(static_cast<uint32_t>(element.name), static_cast<uint32_t>(element.attributes.size()));
  for (const xml::Attribute& attribute : element.attributes) {
    addNumbers(static_cast<uint32_t>(attribute.name), static_cast<uint32_t>(attribute.value.size()));
    bytes_ += attribute.value;
  }
}

xml::Element PropertyRecord::elementAt(size_t& at, std::vector<xml::Attribute>& attributes) const {
  const auto name = static_cast<xml::NameNumber>(numberAt(at));
  attributes.resize(numberAt(at));
  for (xml::Attribute& attribute : attributes) {
    attribute.name = static_cast<xml::NameNumber>(numberAt(at));
    const uint32_t length = numberAt(at);
    attribute.value = std::string_view(bytes_).substr(at, length);
    at += length;
  }
  return {name, {}, attributes};
}

void PropertyCollector::clear() {
  paragraph.clear();
  run.clear();
}

void PropertyCollector::open(const xml::Element& element) {
  clear();
  depth_ = recordedDepth_ = 1;
  own_ = target_ = nameOf(element) == Name::runProperties ? &run : &paragraph;
}

// Below a paragraph's properties, only lists of tabs, numbering and the mark's own properties have elements that count.
void PropertyCollector::startElement(const xml::Element& element) {
  const Name name = nameOf(element);
  const int depth = depth_++;
  if (depth == 1) recordedDepth_ = 1;
  if (depth != recordedDepth_) return;
  const bool isMark = name == Name::runProperties;
  const bool isList = isMark || name == Name::tabs || name == Name::numberingProperties;
  if (depth == 1) target_ = isMark ? &run : own_;
  if (depth == 1 && isList) {
    recordedDepth_ = 2;
  } else {
    target_->add(element);
  }
}

}  // namespace standin::formats::word_xml
