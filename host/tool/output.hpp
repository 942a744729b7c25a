// What commands write: nothing is seen of it before it is complete.
#pragma once

#include <string>

namespace tool {

// A file, or a folder that is a document, which is written aside and then takes its place in one step. "-" is standard
// output, which, like devices and pipes, gets the bytes at the end.
class Output {
 public:
  // Throws DocumentError.
  explicit Output(const std::string& target);
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;
  // What is not finished is removed.
  ~Output();

  // Where to write.
  const std::string& path() const { return path_; }
  // Throws DocumentError, and then leaves what was there.
  void finish();

 private:
  void sendBytes() const;
  void takePlace() const;

  std::string target_;
  bool isStream_;
  std::string aside_;  // a folder of our own
  std::string path_;
};

}  // namespace tool
