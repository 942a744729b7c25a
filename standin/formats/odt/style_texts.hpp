// Styles as the XML that describes them.
#pragma once

#include <bitset>
#include <set>

#include "standin/formats/styled_runs.hpp"

namespace standin::formats::odt {

// Text styles say every property that some style of the document has, so that each means the same wherever it stands.
class StyleTexts {
 public:
  explicit StyleTexts(const StyledRuns& styled);

  // Properties elements.
  std::string text(const text::Style& style) const;
  static std::string paragraph(const text::Paragraph& paragraph, bool breaksBefore, bool breaksAfter);
  // The declarations of the fonts that styles name.
  std::string fontDeclarations() const;

 private:
  static constexpr size_t mostProperties = 16;

  std::bitset<mostProperties> used_;
  std::set<std::string> fonts_;
};

// ` name="value"`, the value escaped; lengths in points.
void appendAttribute(std::string& out, std::string_view name, std::string_view value);
void appendLength(std::string& out, std::string_view name, double points);
// "#rrggbb".
std::string colorText(const text::Color& color);

}  // namespace standin::formats::odt
