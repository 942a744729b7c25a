// Fields that are being read: of each the instruction, and the link that its result is.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace standin::formats::word_xml {

class Fields {
 public:
  // "begin", "separate" or "end"; others do nothing.
  void mark(std::string_view type);
  // A field that comes with its instruction, and whose result follows.
  void openSimple(std::string_view instruction);
  void close();
  void addInstruction(std::string_view text);

  // Text is part of an instruction and does not show.
  bool isInInstruction() const { return instructions_ > 0; }
  // The target of the innermost field that is a link; empty when there is none.
  std::u16string_view link() const;

 private:
  struct Field {
    std::string instruction{};
    std::u16string link{};
    bool isResult = false;
  };

  void beginResult();

  std::vector<Field> fields_;
  size_t instructions_ = 0;  // of the open fields, those whose result has not begun
};

}  // namespace standin::formats::word_xml
