// Codes to text, as a character map.
#include "standin/layout/pdf/unicode_map.hpp"

#include <algorithm>
#include <iterator>

#include "standin/layout/pdf/syntax.hpp"

namespace standin::layout::pdf {
namespace {

// Readers take so many lines in one block.
constexpr size_t blockSize = 100;

constexpr const char* beginning =
    "/CIDInit/ProcSet findresource begin\n12 dict begin\nbegincmap\n"
    "/CIDSystemInfo<</Registry(Adobe)/Ordering(UCS)/Supplement 0>>def\n"
    "/CMapName/Adobe-Identity-UCS def\n/CMapType 2 def\n1 begincodespacerange\n";
constexpr const char* ending = "endcmap\nCMapName currentdict/CMap defineresource pop\nend\nend\n";

std::string codeOf(uint32_t code, bool hasTwoBytes) {
  std::string digits;
  appendHex(digits, static_cast<char16_t>(code));
  return '<' + digits.substr(hasTwoBytes ? 0 : 2) + '>';
}

}  // namespace

std::string unicodeMap(const std::map<uint32_t, std::u16string>& texts, bool hasTwoBytes) {
  std::string out = beginning;
  out += hasTwoBytes ? "<0000><FFFF>\n" : "<00><FF>\n";
  out += "endcodespacerange\n";
  std::map<uint32_t, std::u16string> told;
  std::copy_if(texts.begin(), texts.end(), std::inserter(told, told.end()), [](auto& each) { return !each.second.empty(); });
  for (auto entry = told.begin(); entry != told.end();) {
    const auto count = std::min(blockSize, static_cast<size_t>(std::distance(entry, told.end())));
    out += std::to_string(count) + " beginbfchar\n";
    for (size_t line = 0; line < count; ++line, ++entry) {
      out += codeOf(entry->first, hasTwoBytes) + '<';
      for (const char16_t unit : entry->second) appendHex(out, unit);
      out += ">\n";
    }
    out += "endbfchar\n";
  }
  return out += ending;
}

}  // namespace standin::layout::pdf
