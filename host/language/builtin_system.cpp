// The program's surroundings: its arguments, the clock, files.
#include <chrono>

#include "host/language/builtins.hpp"
#include "host/language/conversion.hpp"
#include "host/language/files.hpp"
#include "host/language/frame.hpp"
#include "host/runtime/array.hpp"
#include "host/runtime/folder_item.hpp"

namespace language {
namespace {

using Arguments = std::span<Value>;

Value programArguments(Context& context, Arguments) {
  HostOwned<HostObject> array = host::makeArray(host::typeNamed("String"), -1);
  for (const std::string& argument : context.invocation.arguments) host::appendElement(array, Value::string(argument));
  return Value::object(std::move(array));
}

// What was written after the program's name, in one string.
Value commandLine(Context& context, Arguments) {
  std::string line;
  for (const std::string& argument : context.invocation.arguments) line += (line.empty() ? "" : " ") + argument;
  return Value::string(line);
}

Value programFile(Context& context, Arguments) { return Value::object(host::makeFolderItem(context.invocation.path)); }

Value microseconds(Context&, Arguments) {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return Value::number(std::chrono::duration<double, std::micro>(now).count());
}

Value folderItem(Context&, Arguments arguments) { return Value::object(host::makeFolderItem(host::toUtf8(arguments[0]))); }

std::string pathIn(const Value& value) { return host::pathOf(value.asObject()); }

Value readText(Context&, Arguments arguments) { return Value::string(readFile(pathIn(arguments[0]))); }

Value writeText(Context&, Arguments arguments) {
  writeFile(pathIn(arguments[0]), host::toUtf8(arguments[1]));
  return {};
}

constexpr Builtin kTable[] = {
    {"System.Arguments", Plain, 0, 0, programArguments}, {"System.CommandLine", Plain, 0, 0, commandLine},
    {"System.ProgramFile", Plain, 0, 0, programFile},    {"Microseconds", Plain, 0, 0, microseconds},
    {"GetFolderItem", Plain, 1, 1, folderItem},          {"ReadText", OfFolderItem, 1, 1, readText},
    {"WriteText", OfFolderItem, 2, 2, writeText},
};

}  // namespace

std::span<const Builtin> systemBuiltins() { return kTable; }

}  // namespace language
