// The two kinds of container.
#include "standin/formats/docx/package.hpp"

#include <algorithm>
#include <utility>

#include "standin/formats/base64.hpp"
#include "standin/formats/word_xml/values.hpp"
#include "standin/formats/zip.hpp"

namespace standin::formats::docx {
namespace {

using word_xml::Name;
using word_xml::nameOf;
using word_xml::valueOf;

// Some programs write backslashes, and capitals of their own.
std::string normalized(std::string_view name) {
  std::string result(name.substr(std::min(name.find_first_not_of("/\\"), name.size())));
  std::transform(result.begin(), result.end(), result.begin(), [](char c) {
    return c == '\\' ? '/' : c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
  });
  return result;
}

class ZipPackage final : public Package {
 public:
  ZipPackage(zip::Archive archive, size_t size) : archive_(std::move(archive)), mostAtOnce_((size_t{1} << 20) + 2 * size) {
    for (std::string& name : archive_.names()) entries_.emplace(normalized(name), std::move(name));
  }

  bool parse(std::string_view part, xml::Handler& handler) override {
    const auto entry = entries_.find(normalized(part));
    auto reading = entry != entries_.end() ? archive_.readInPieces(entry->second) : std::nullopt;
    return reading && xml::parse({*std::move(reading), mostAtOnce_}, word_xml::nameTable(), handler);
  }

  std::optional<std::string> bytes(std::string_view part, size_t most) override {
    const auto entry = entries_.find(normalized(part));
    return entry != entries_.end() ? archive_.read(entry->second, most) : std::nullopt;
  }

 private:
  zip::Archive archive_;
  const size_t mostAtOnce_;                     // bytes of a tag
  std::map<std::string, std::string> entries_;  // the names in the container by normalized ones
};

// Hands over what lies in the content of one part.
class PartHandler final : public xml::Handler {
 public:
  PartHandler(std::string part, xml::Handler& handler) : part_(std::move(part)), handler_(handler) {}

  void startElement(const xml::Element& element) override {
    if (depth_ > 0) {
      ++depth_;
      return handler_.startElement(element);
    }
    if (nameOf(element) == Name::part) isInPart_ = normalized(valueOf(element, Name::partName)) == part_;
    if (nameOf(element) == Name::partContent && isInPart_) depth_ = 1;
    hasPart = hasPart || depth_ > 0;
  }
  void endElement(xml::NameNumber name) override {
    if (depth_ > 0 && --depth_ > 0) handler_.endElement(name);
  }
  void characters(std::string_view text) override {
    if (depth_ > 0) handler_.characters(text);
  }

  bool hasPart = false;

 private:
  const std::string part_;
  xml::Handler& handler_;
  bool isInPart_ = false;
  int depth_ = 0;  // of open elements, the content's own included
};

// Collects the parts that are no XML.
class BytesHandler final : public xml::Handler {
 public:
  void startElement(const xml::Element& element) override {
    isPackage = isPackage || nameOf(element) == Name::package;
    if (nameOf(element) == Name::part) part_ = normalized(valueOf(element, Name::partName));
    isInBytes_ = nameOf(element) == Name::partBytes;
    text_.clear();
  }
  void endElement(xml::NameNumber) override {
    if (std::exchange(isInBytes_, false)) parts[part_] = bytesOfBase64(text_);
  }
  void characters(std::string_view text) override {
    if (isInBytes_) text_ += text;
  }

  bool isPackage = false;
  std::map<std::string, std::string> parts;

 private:
  std::string part_, text_;
  bool isInBytes_ = false;
};

class FlatPackage final : public Package {
 public:
  FlatPackage(std::span<const uint8_t> bytes, std::map<std::string, std::string> parts)
      : bytes_(bytes), parts_(std::move(parts)) {}

  bool parse(std::string_view part, xml::Handler& handler) override {
    PartHandler filter(normalized(part), handler);
    return xml::parse(bytes_, word_xml::nameTable(), filter) && filter.hasPart;
  }
  std::optional<std::string> bytes(std::string_view part, size_t most) override {
    const auto found = parts_.find(normalized(part));
    return found != parts_.end() && found->second.size() <= most ? std::optional(found->second) : std::nullopt;
  }

 private:
  std::span<const uint8_t> bytes_;
  std::map<std::string, std::string> parts_;
};

// "a/b/../c" is "a/c".
std::string resolved(std::string_view folder, std::string_view target) {
  std::string path(target.starts_with('/') ? std::string_view() : folder);
  while (!target.empty()) {
    const std::string_view step = target.substr(0, target.find('/'));
    target.remove_prefix(std::min(step.size() + 1, target.size()));
    if (step == "..") {
      path.erase(path.find_last_of('/') == path.npos ? 0 : path.find_last_of('/'));
    } else if (!step.empty() && step != ".") {
      if (!path.empty()) path += '/';
      path += step;
    }
  }
  return path;
}

class RelationshipsHandler final : public xml::Handler {
 public:
  RelationshipsHandler(std::string_view folder, std::map<std::string, Relationship, std::less<>>& found,
                       MemoryAllowance& allowance)
      : folder_(folder), found_(found), allowance_(allowance) {}

  void startElement(const xml::Element& element) override {
    if (nameOf(element) != Name::relationship) return;
    const std::string_view type = valueOf(element, Name::relationshipType);
    const std::string_view target = valueOf(element, Name::relationshipTarget);
    constexpr size_t placeCost = 300;  // bytes in the map
    allowance_.take(placeCost + element.cost());
    const bool isOutside = valueOf(element, Name::relationshipMode) == "External";
    found_.emplace(valueOf(element, Name::relationshipOwnId),
                   Relationship{std::string(type.substr(type.find_last_of('/') + 1)),
                                isOutside ? std::string(target) : resolved(folder_, target)});
  }
  void endElement(xml::NameNumber) override {}
  void characters(std::string_view) override {}
  bool isFull() const override { return allowance_.isHalfSpent(); }

 private:
  std::string_view folder_;
  std::map<std::string, Relationship, std::less<>>& found_;
  MemoryAllowance& allowance_;
};

}  // namespace

std::unique_ptr<Package> openPackage(std::span<const uint8_t> bytes) {
  if (bytes.size() > 1 && bytes[0] == 'P' && bytes[1] == 'K') {
    auto archive = zip::Archive::open(bytes);
    return archive ? std::make_unique<ZipPackage>(*std::move(archive), bytes.size()) : nullptr;
  }
  BytesHandler flat;
  if (!xml::parse(bytes, word_xml::nameTable(), flat) || !flat.isPackage) return nullptr;
  return std::make_unique<FlatPackage>(bytes, std::move(flat.parts));
}

Relationships::Relationships(Package& package, std::string_view part, MemoryAllowance& allowance) {
  const size_t slash = part.find_last_of('/');
  const std::string_view folder = slash != part.npos ? part.substr(0, slash) : std::string_view();
  const std::string_view file = slash != part.npos ? part.substr(slash + 1) : part;
  RelationshipsHandler handler(folder, relationships_, allowance);
  package.parse(std::string(folder) + "/_rels/" + std::string(file) + ".rels", handler);
}

const Relationship* Relationships::find(std::string_view id) const {
  const auto found = relationships_.find(id);
  return found != relationships_.end() ? &found->second : nullptr;
}

const Relationship* Relationships::ofType(std::string_view type) const {
  const auto found = std::find_if(relationships_.begin(), relationships_.end(),
                                  [&](const auto& entry) { return word_xml::isSameValue(entry.second.type, type); });
  return found != relationships_.end() ? &found->second : nullptr;
}

}  // namespace standin::formats::docx
