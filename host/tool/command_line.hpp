// The commands of styledtext with their options, as the command line declares them.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>

#include "host/tool/classes_command.hpp"
#include "host/tool/convert_command.hpp"
#include "host/tool/inspect_command.hpp"
#include "host/tool/preview_command.hpp"
#include "host/tool/run_command.hpp"

namespace tool {

class CommandLine {
 public:
  CommandLine();
  // Does what the arguments say. Answers the exit status.
  int run(int count, char** arguments);

 private:
  using Command = std::function<int()>;
  // A command that does this once the whole line is understood.
  CLI::App* add(const char* name, const char* description, Command command);
  void addRun();
  void addConvert();
  void addInspect();
  void addPreview();
  void addClasses();
  void addCompletion();

  CLI::App app_;
  bool log_ = false;
  Command chosen_;
  RunOptions running_;
  ConvertOptions conversion_;
  InspectOptions inspection_;
  PreviewOptions preview_;
  ClassesOptions listing_;
};

}  // namespace tool
