// What commands read: files, and standard input.
#pragma once

#include <string>

namespace tool {

// How people are told of it: "standard input" for "-".
std::string shownName(const std::string& name);

// The file of that name. For "-" it is a copy of standard input that nobody else can read, alone in its folder, so that the
// document finds no files of others beside it; removed at the end.
class Input {
 public:
  // Throws DocumentError when standard input cannot be copied.
  explicit Input(const std::string& name);
  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;
  ~Input();

  const std::string& path() const { return path_; }

 private:
  void remove() const;

  std::string path_;
  std::string folder_;  // of the copy; "" when there is none
};

}  // namespace tool
