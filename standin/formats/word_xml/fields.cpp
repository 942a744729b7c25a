// Marks of fields, which may lie one in another.
#include "standin/formats/word_xml/fields.hpp"

#include "standin/formats/link_target.hpp"
#include "standin/formats/utf8.hpp"

namespace standin::formats::word_xml {
namespace {

// What lies deeper is a hostile document's.
constexpr size_t mostFields = 200;
// Bytes, beyond which an instruction is none.
constexpr size_t mostInInstruction = 16'384;

}  // namespace

void Fields::mark(std::string_view type) {
  if (type == "begin" && fields_.size() < mostFields) {
    fields_.emplace_back();
    ++instructions_;
  }
  if (type == "separate") beginResult();
  if (type == "end") close();
}

void Fields::openSimple(std::string_view instruction) {
  mark("begin");
  addInstruction(instruction);
  beginResult();
}

void Fields::close() {
  if (fields_.empty()) return;
  if (!fields_.back().isResult) --instructions_;
  fields_.pop_back();
}

void Fields::addInstruction(std::string_view text) {
  if (fields_.empty() || fields_.back().isResult) return;
  std::string& instruction = fields_.back().instruction;
  if (instruction.size() + text.size() <= mostInInstruction) instruction += text;
}

void Fields::beginResult() {
  if (fields_.empty() || fields_.back().isResult) return;
  Field& field = fields_.back();
  field.isResult = true;
  --instructions_;
  if (const auto target = linkTarget(unitsOf(field.instruction))) field.link = *target;
}

std::u16string_view Fields::link() const {
  for (auto field = fields_.rbegin(); field != fields_.rend(); ++field) {
    if (!field->link.empty()) return field->link;
  }
  return {};
}

}  // namespace standin::formats::word_xml
