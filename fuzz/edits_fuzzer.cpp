// Edits of styled text, each done to a naive model as well that has a unit and an attribute set for every position.
#include <algorithm>
#include <array>
#include <vector>

#include "fuzz/support/byte_source.hpp"
#include "standin/foundation/number.hpp"
#include "standin/foundation/string.hpp"
#include "standin/text/styled_text.hpp"

namespace {

using namespace standin::text;

constexpr uint32_t mostLength = 12'000;

struct Unit {
  char16_t character;
  AttributeHandle attributes;
  bool operator==(const Unit&) const = default;
};
using Model = std::vector<Unit>;

// Sets to style with; the first is the empty one.
const std::vector<AttributeSet>& palette() {
  static const std::vector<AttributeSet> sets = [] {
    std::vector<AttributeSet> made(1);
    for (int level = 1; level < 5; ++level) {
      made.push_back(
          AttributeSet().with(standin::foundation::constantString("level"), standin::foundation::newNumber(level).get()));
    }
    return made;
  }();
  return sets;
}

class Editing {
 public:
  explicit Editing(fuzz::Bytes bytes) : source_(bytes) {}

  void run() {
    while (!source_.atEnd()) {
      edit();
      if (source_.byte() % 16 == 0) check(text_, model_);
    }
    check(text_, model_);
    check(kept_, keptModel_);
  }

 private:
  uint32_t upTo(size_t limit) { return source_.upTo(static_cast<uint32_t>(limit)); }
  const AttributeSet& style() { return palette()[upTo(palette().size() - 1)]; }

  void edit() {
    const uint32_t from = upTo(model_.size()), count = std::min<uint32_t>(upTo(300), uint32_t(model_.size()) - from);
    switch (upTo(7)) {
      case 0:
        return replace(from, count, {});
      case 1:
        return replace(from, count, newUnits(upTo(20)));
      case 2:
        return replace(from, 0, newUnits(upTo(6000)));
      case 3:
        return replaceWithOwn(from, count);
      case 4:
        return setAttributes(from, count, style());
      case 5:
        return addAttribute(from, count);
      case 6:
        kept_ = text_;
        keptModel_ = model_;
        return;
      default:
        std::swap(text_, kept_);
        std::swap(model_, keptModel_);
    }
  }

  Model newUnits(uint32_t count) {
    const uint8_t kind = source_.byte();
    constexpr std::array<char16_t, 8> units = {u'a', u'\n', u'\r', 0xFFFC, 0x20AC, 0xE9, 0xD83D, 0x2029};
    const AttributeSet& attributes = style();
    Model added;
    for (uint32_t index = 0; index < count; ++index) {
      const bool isPlain = (index + kind) % 7 != 0;
      added.push_back({isPlain ? u'b' : units[(index + kind) % units.size()], attributes.handle()});
    }
    return added;
  }

  void replace(uint32_t from, uint32_t removed, const Model& added) {
    if (model_.size() + added.size() > mostLength) return;
    const AttributeSet attributes = added.empty() ? AttributeSet() : AttributeSet(added.front().attributes);
    std::u16string characters;
    for (const Unit& unit : added) characters += unit.character;
    text_.splice(from, removed, Text::utf16(characters), attributes);
    replaceInModel(from, removed, added);
  }

  void replaceWithOwn(uint32_t from, uint32_t removed) {
    const uint32_t start = upTo(model_.size()), count = upTo(model_.size() - start);
    if (model_.size() + count > mostLength) return;
    text_.splice(from, removed, text_.slice(start, count));
    replaceInModel(from, removed, Model(model_.begin() + start, model_.begin() + start + count));
  }

  void replaceInModel(uint32_t from, uint32_t removed, const Model& added) {
    model_.erase(model_.begin() + from, model_.begin() + from + removed);
    model_.insert(model_.begin() + from, added.begin(), added.end());
  }

  void setAttributes(uint32_t from, uint32_t count, const AttributeSet& attributes) {
    text_.setAttributes(from, count, attributes);
    for (uint32_t at = from; at < from + count; ++at) model_[at].attributes = attributes.handle();
  }

  void addAttribute(uint32_t from, uint32_t count) {
    const AttributeSet& added = style();
    text_.addAttributes(from, count, added);
    if (added.empty()) return;
    for (uint32_t at = from; at < from + count; ++at) model_[at].attributes = added.handle();
  }

  static void check(const StyledText& text, const Model& model) {
    text.checkInvariants();
    fuzz::require(text.length() == model.size(), "the length is another");
    std::u16string characters(model.size(), 0);
    text.text().copy(0, text.length(), characters.data());
    text.forEachRun(0, text.length(), [&](const RunPlace& run) {
      for (uint32_t at = run.start; at < run.end(); ++at) {
        fuzz::require(Unit{characters[at], run.attributes} == model[at], "a unit is another");
      }
    });
    const auto isAttachment = [](const Unit& unit) { return unit.character == 0xFFFC; };
    fuzz::require(text.text().attachmentCharacters(0, text.length()) ==
                      static_cast<size_t>(std::count_if(model.begin(), model.end(), isAttachment)),
                  "the number of attachments is another");
  }

  fuzz::ByteSource source_;
  StyledText text_, kept_;
  Model model_, keptModel_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  Editing({bytes, size}).run();
  return 0;
}
