// The installed faces: which one stands for a font, and which one has a character that the font lacks.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "standin/layout/face.hpp"
#include "standin/text/style.hpp"

namespace standin::layout {

// A face, and what has to be imitated because the installed font has no such face.
struct FaceUse {
  Face* face = nullptr;
  bool thickens = false, slants = false;

  bool operator==(const FaceUse&) const = default;
};

// The faces opened for one document. A face is opened once.
class Faces {
 public:
  FaceUse forFont(const text::Font& font);
  // The font's own face when it has the character or no face has it.
  FaceUse forCharacter(char32_t character, const text::Font& font, bool asPicture);
  // A face that has all of them; nil when there is none.
  FaceUse forCharacters(std::u32string_view characters, const text::Font& font);

 private:
  using FileIndex = std::pair<std::string, int>;
  struct Installed {
    FileIndex file;
    bool isBold, isItalic;
  };

  Face* open(const FileIndex& file);
  Installed find(const text::Font& font);
  FaceUse use(const Installed& installed, const text::Font& font);
  const std::vector<Installed>& substitutes(const text::Font& font, bool asPicture);

  std::map<FileIndex, Face> faces_;
  std::set<std::string> families_;                             // that are installed, as they are compared
  std::map<std::pair<std::string, int>, Installed> standIns_;  // by family and style
  std::map<std::pair<std::string, int>, FaceUse> byFont_;
  std::map<int, std::vector<Installed>> substitutes_;
  std::unordered_map<uint64_t, FaceUse> byCharacter_;
};

}  // namespace standin::layout
