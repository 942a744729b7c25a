// The parts of a package around its text, and the list of what they are.
#pragma once

#include <string>
#include <vector>

#include "standin/formats/document.hpp"
#include "standin/formats/zip.hpp"

namespace standin::formats::docx {

// Collects the parts of a package and says of each what it is.
class PartsWriter {
 public:
  // The content type is the end of its name, behind what those of Office have in common.
  void addOffice(std::string name, std::string_view type, std::string contents);
  void add(std::string name, std::string_view type, std::string contents);
  // Of a type that its name's extension says: relationships, and pictures, which are compressed by themselves.
  void addByExtension(std::string name, std::string contents, bool isCompressed = true);
  // The list of types comes first.
  std::vector<zip::Entry> finish();

 private:
  std::string types_;
  std::vector<zip::Entry> entries_;
};

// The parts of properties, and the relationships of the package to them and to the main part.
void addProperties(PartsWriter& parts, const Properties& properties);

// A relationship; `type` is the end of its address, behind what those of Office have in common. Ids and targets are escaped
// already.
std::string relationshipElement(std::string_view id, std::string_view type, std::string_view target,
                                bool isExternal = false);
std::string relationshipsPart(std::string_view elements);

inline constexpr std::string_view xmlDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";

}  // namespace standin::formats::docx
