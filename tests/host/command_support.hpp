// The command line run from tests, in a folder of their own.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

namespace command_test {

namespace fs = std::filesystem;

struct Outcome {
  std::string output;  // both streams
  int status;
};

// The command lies beside the tests.
inline std::string command() { return (fs::read_symlink("/proc/self/exe").parent_path() / "styledtext").string(); }

inline Outcome shell(const std::string& line) {
  FILE* pipe = popen(("{ " + line + "\n} 2>&1").c_str(), "r");
  std::string output;
  std::array<char, 4096> buffer;
  while (const size_t count = fread(buffer.data(), 1, buffer.size(), pipe)) output.append(buffer.data(), count);
  return {output, WEXITSTATUS(pclose(pipe))};
}

class CommandTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!fs::exists(command())) GTEST_SKIP() << "styledtext is not built";
    std::string pattern = (fs::temp_directory_path() / "styledtextXXXXXX").string();
    folder_ = mkdtemp(pattern.data());
  }
  void TearDown() override {
    if (!folder_.empty()) fs::remove_all(folder_);
  }

  void write(const std::string& name, const std::string& content) const { std::ofstream(folder_ / name) << content; }
  std::string read(const std::string& name) const {
    std::ostringstream content;
    content << std::ifstream(folder_ / name).rdbuf();
    return content.str();
  }
  // In the test's folder; "styledtext" is the command there.
  Outcome inFolder(const std::string& line) const {
    return shell("cd '" + folder_.string() + "'; PATH='" + fs::path(command()).parent_path().string() + "':$PATH; " + line);
  }
  Outcome styledtext(const std::string& arguments) const { return inFolder("styledtext " + arguments); }

  // Names of everything in a folder of the test's, hidden files too, sorted, each followed by a space.
  std::string listing(const std::string& name = ".") const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_ / name)) names.insert(entry.path().filename().string());
    std::string text;
    for (const std::string& each : names) text += each + " ";
    return text;
  }

  fs::path folder_;
};

}  // namespace command_test
