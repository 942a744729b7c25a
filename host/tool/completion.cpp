// The script, with the command line's own tables in it.
#include "host/tool/completion.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace tool {
namespace {

// What the shell does with the tables, which come between.
constexpr char beginning[] = R"(# Completion of styledtext for bash.
_styledtext() {
  local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command= options= values= index
  for ((index = 1; index < COMP_CWORD; ++index)); do
    [[ ${COMP_WORDS[index]} == -* ]] || { command=${COMP_WORDS[index]}; break; }
  done
  case $command in
)";
constexpr char ending[] = R"(  esac
  COMPREPLY=()
  if [[ $values ]]; then
    COMPREPLY=($(compgen -W "$values" -- "$word"))
  elif [[ $word == -* || ! $command ]]; then
    COMPREPLY=($(compgen -W "$options" -- "$word"))
  fi
}
complete -o bashdefault -o default -F _styledtext styledtext
)";

std::string optionNames(const CLI::App& app) {
  std::string names;
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_snames()) names += "-" + name + " ";
    for (const std::string& name : option->get_lnames()) names += "--" + name + " ";
  }
  return names;
}

// "rtf html" of an option whose type is written as "TEXT:{rtf,html}"; "" of any other.
std::string valuesOf(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  const size_t first = type.find('{'), last = type.rfind('}');
  if (first == std::string::npos || last == std::string::npos) return "";
  std::string values = type.substr(first + 1, last - first - 1);
  std::replace(values.begin(), values.end(), ',', ' ');
  return values;
}

std::string caseOf(const std::string& command, const std::string& options, const CLI::App& app) {
  std::string text = "    \"" + command + "\")\n      options=\"" + options + "\"\n      case $previous in\n";
  for (const CLI::Option* option : app.get_options()) {
    const std::string values = valuesOf(*option);
    if (!values.empty()) text += "        --" + option->get_lnames().front() + ") values=\"" + values + "\" ;;\n";
  }
  return text + "      esac ;;\n";
}

}  // namespace

std::string bashCompletion(const CLI::App& app) {
  std::string commands, cases;
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    commands += command->get_name() + " ";
    cases += caseOf(command->get_name(), optionNames(*command), *command);
  }
  return beginning + caseOf("", commands + optionNames(app), app) + cases + ending;
}

}  // namespace tool
