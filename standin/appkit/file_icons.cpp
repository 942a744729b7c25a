// File icons, drawn from rows of letters.
#include "standin/appkit/file_icons.hpp"

#include <array>
#include <string_view>
#include <vector>

#include "standin/appkit/image.hpp"
#include "standin/formats/pictures/picture.hpp"
#include "standin/foundation/data.hpp"

namespace standin::appkit {
namespace {

constexpr size_t side = 16;
// Each letter becomes a square of so many pixels.
constexpr size_t scale = 2;

using Drawing = std::array<std::string_view, side>;

// A folder, a page, and a page with an arrow: o outline, w paper, b folder, s its shadow, a arrow.
constexpr Drawing drawings[] = {
    {"                ", "                ", "  ooooo         ", " obbbbbo        ", " obbbbbboooooo  ", " obbbbbbbbbbbbo ",
     " oossssssssssoo ", " obbbbbbbbbbbbo ", " obbbbbbbbbbbbo ", " obbbbbbbbbbbbo ", " obbbbbbbbbbbbo ", " obbbbbbbbbbbbo ",
     " obbbbbbbbbbbbo ", " oooooooooooooo ", "                ", "                "},
    {"   oooooooo     ", "   owwwwwwoo    ", "   owwwwwwowo   ", "   owwwwwwoooo  ", "   owwwwwwwwwo  ", "   owwwwwwwwwo  ",
     "   owwwwwwwwwo  ", "   owwwwwwwwwo  ", "   owwwwwwwwwo  ", "   owwwwwwwwwo  ", "   owwwwwwwwwo  ", "   owwwwwwwwwo  ",
     "   owwwwwwwwwo  ", "   owwwwwwwwwo  ", "   owwwwwwwwwo  ", "   ooooooooooo  "},
    {"   oooooooo     ", "   owwwwwwoo    ", "   owwwwwwowo   ", "   owwwwwwoooo  ", "   owwwwwwwwwo  ", "   owwwwwwwwwo  ",
     "   owwwwaaaawo  ", "   owwwwwaaawo  ", "   owwwwaaaawo  ", "   owwwaaawawo  ", "   owwaaawwwwo  ", "   owwaawwwwwo  ",
     "   owwaawwwwwo  ", "   owwwwwwwwwo  ", "   owwwwwwwwwo  ", "   ooooooooooo  "},
};

struct Ink {
  char letter;
  std::array<uint8_t, 4> color;
};
constexpr Ink inks[] = {{'o', {110, 118, 130, 255}}, {'w', {250, 250, 250, 255}}, {'b', {120, 178, 230, 255}},
                        {'s', {90, 146, 200, 255}},  {'a', {40, 44, 52, 255}},    {' ', {0, 0, 0, 0}}};

std::array<uint8_t, 4> colorOf(char letter) {
  for (const Ink& ink : inks) {
    if (ink.letter == letter) return ink.color;
  }
  return {};
}

Owned<NSImage> drawn(const Drawing& drawing) {
  constexpr size_t width = side * scale;
  std::vector<uint8_t> pixels;
  for (size_t pixel = 0; pixel < width * width; ++pixel) {
    const auto color = colorOf(drawing[pixel / width / scale][pixel % width / scale]);
    pixels.insert(pixels.end(), color.begin(), color.end());
  }
  auto bytes = formats::pictures::encode(pixels, {static_cast<int>(width), static_cast<int>(width)});
  return bytes ? newImage(foundation::newData(std::move(*bytes))) : nullptr;
}

}  // namespace

Owned<NSImage> newFileIcon(FileKind kind) { return drawn(drawings[static_cast<size_t>(kind)]); }

}  // namespace standin::appkit
