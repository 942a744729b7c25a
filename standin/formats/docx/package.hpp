// The container of a document: named parts in a zip file, or in one XML file.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "standin/formats/memory_allowance.hpp"
#include "standin/formats/xml.hpp"

namespace standin::formats::docx {

// Parts have names like "word/document.xml"; capitals do not count.
class Package {
 public:
  virtual ~Package() = default;
  // False when there is no such part, or it is not well-formed: what came before the fault was handed over.
  virtual bool parse(std::string_view part, xml::Handler& handler) = 0;
  // Those of a part that is no XML; nothing when there is none by the name, or it has more than so many bytes.
  virtual std::optional<std::string> bytes(std::string_view part, size_t most) = 0;
};

// Nil when the bytes are no container. They must outlive the package.
std::unique_ptr<Package> openPackage(std::span<const uint8_t> bytes);

struct Relationship {
  std::string type;    // the last part of its address: "styles"
  std::string target;  // a part of the package, or the address of something outside it
};

class Relationships {
 public:
  // Those of the part, or of the whole package when the name is empty.
  Relationships(Package& package, std::string_view part, MemoryAllowance& allowance);

  // Nil when there is none by the name.
  const Relationship* find(std::string_view id) const;
  // The first of the type, capitals and hyphens aside; nil when there is none.
  const Relationship* ofType(std::string_view type) const;

 private:
  std::map<std::string, Relationship, std::less<>> relationships_;
};

}  // namespace standin::formats::docx
