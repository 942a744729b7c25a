// Binary lists by a walk over their references, XML ones by their tags.
#include "standin/formats/webarchive/property_list_bounds.hpp"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

namespace standin::formats::webarchive {
namespace {

using namespace std::string_view_literals;

constexpr uint32_t deepest = 256;
constexpr uint64_t growth = 50, allowance = 64 << 20;
constexpr uint64_t nodeSize = 256;  // what a value takes beside its bytes, generously

// What a value comes to with everything that it refers to.
struct Extent {
  uint64_t size = 0;
  uint32_t depth = 0;  // 0 while it is not known
};

// Numbers are big-endian. The list ends with 32 bytes that say where its table of offsets is.
class BinaryList {
 public:
  explicit BinaryList(std::span<const uint8_t> bytes) : bytes_(bytes), budget_(bytes.size() * growth + allowance) {}

  bool isBounded() {
    if (!readTrailer()) return false;
    extents_.resize(count_);
    open_.resize(count_);
    return measure(root_, 1).has_value();
  }

 private:
  // What follows a value's mark: bytes of its own, and references.
  struct Value {
    uint64_t size = 0, references = 0, firstReference = 0;
  };

  bool readTrailer() {
    constexpr size_t trailerSize = 32;
    if (bytes_.size() < trailerSize) return false;
    const size_t trailer = bytes_.size() - trailerSize;
    offsetSize_ = bytes_[trailer + 6];
    referenceSize_ = bytes_[trailer + 7];
    const auto count = number(trailer + 8, 8), root = number(trailer + 16, 8), table = number(trailer + 24, 8);
    if (offsetSize_ == 0 || offsetSize_ > 8 || referenceSize_ == 0 || referenceSize_ > 8) return false;
    if (*root >= *count || *table > trailer || *count > (trailer - *table) / offsetSize_) return false;
    count_ = *count;
    root_ = *root;
    table_ = *table;
    return true;
  }

  // Nothing when it goes beyond the bytes.
  std::optional<uint64_t> number(uint64_t at, size_t size) const {
    if (at > bytes_.size() || size > bytes_.size() - at) return std::nullopt;
    uint64_t value = 0;
    for (const uint8_t byte : bytes_.subspan(at, size)) value = value << 8 | byte;
    return value;
  }

  std::optional<Extent> measure(uint64_t index, uint32_t depth) {
    if (index >= count_ || open_[index] || depth > deepest) return std::nullopt;
    if (extents_[index].depth == 0) {
      open_[index] = true;
      const auto extent = measureNew(index, depth);
      if (!extent) return std::nullopt;
      extents_[index] = *extent;
      open_[index] = false;
    }
    if (depth + extents_[index].depth - 1 > deepest) return std::nullopt;
    return extents_[index];
  }

  std::optional<Extent> measureNew(uint64_t index, uint32_t depth) {
    const auto value = valueAt(*number(table_ + index * offsetSize_, offsetSize_));
    if (!value) return std::nullopt;
    Extent extent{nodeSize + value->size, 1};
    for (uint64_t reference = 0; reference < value->references; ++reference) {
      const auto child = measure(*number(value->firstReference + reference * referenceSize_, referenceSize_), depth + 1);
      if (!child) return std::nullopt;
      extent.size += child->size;
      extent.depth = std::max(extent.depth, child->depth + 1);
      if (extent.size > budget_) return std::nullopt;
    }
    return extent;
  }

  // The high half of the mark is the kind; the low one is the size or, when all its bits are set, a number follows that is.
  std::optional<Value> valueAt(uint64_t at) const {
    const auto mark = number(at, 1);
    if (!mark) return std::nullopt;
    uint64_t length = *mark & 15;
    const uint64_t kind = *mark >> 4;
    ++at;
    if (kind >= 4 && kind != 8 && length == 15) {
      const auto sizeMark = number(at, 1);
      if (!sizeMark || *sizeMark >> 4 != 1 || (*sizeMark & 15) > 3) return std::nullopt;
      const size_t size = size_t{1} << (*sizeMark & 15);
      const auto given = number(at + 1, size);
      if (!given || *given > bytes_.size()) return std::nullopt;
      length = *given;
      at += 1 + size;
    }
    return valueOf(kind, length, at);
  }

  std::optional<Value> valueOf(uint64_t kind, uint64_t length, uint64_t at) const {
    Value value;
    switch (kind) {
      case 0x0:
        break;
      case 0x1:
      case 0x2:
      case 0x3:
        value.size = uint64_t{1} << length;
        break;
      case 0x4:
      case 0x5:
        value.size = length;
        break;
      case 0x6:
        value.size = length * 2;
        break;
      case 0x8:
        value.size = length + 1;
        break;
      case 0xA:
        value.references = length;
        break;
      case 0xD:
        value.references = length * 2;
        break;
      default:
        return std::nullopt;
    }
    value.firstReference = at;
    const uint64_t stored = value.size + value.references * referenceSize_;
    if (at > bytes_.size() || stored > bytes_.size() - at) return std::nullopt;
    return value;
  }

  const std::span<const uint8_t> bytes_;
  const uint64_t budget_;
  size_t offsetSize_ = 0, referenceSize_ = 0;
  uint64_t count_ = 0, root_ = 0, table_ = 0;
  std::vector<Extent> extents_;
  std::vector<bool> open_;  // values that are being measured
};

// Whether every tag is plain enough that no reader sees others, each end has its start, and their nesting is bounded.
bool isBoundedXML(std::string_view text) {
  std::vector<std::string_view> open;
  for (size_t at = text.find('<'); at != text.npos; at = text.find('<', at)) {
    const size_t end = text.find('>', at);
    if (end == text.npos) return true;
    const std::string_view tag = text.substr(at + 1, end - at - 1);
    if (tag.empty() || tag.find('<') != tag.npos || tag.starts_with("!--") || tag.starts_with("![")) return false;
    if (tag.starts_with('/')) {
      if (open.empty() || open.back() != tag.substr(1)) return false;
      open.pop_back();
    } else if (!tag.starts_with('?') && !tag.starts_with('!') && !tag.ends_with('/')) {
      open.push_back(tag.substr(0, tag.find_first_of(" \t\r\n")));
      if (open.size() > deepest) return false;
    }
    at = end;
  }
  return true;
}

}  // namespace

bool isBoundedPropertyList(std::span<const uint8_t> bytes) {
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  if (text.starts_with("bplist00"sv)) return BinaryList(bytes).isBounded();
  if (text.starts_with("bplist"sv)) return false;
  return isBoundedXML(text);
}

}  // namespace standin::formats::webarchive
