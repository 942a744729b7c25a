// The command line, styledtext.
#include <CLI/CLI.hpp>
#include <iostream>

#include "host/tool/classes_command.hpp"
#include "host/tool/convert_command.hpp"
#include "host/tool/documents.hpp"
#include "host/tool/inspect_command.hpp"
#include "host/tool/messages.hpp"
#include "host/tool/preview_command.hpp"
#include "host/tool/run_command.hpp"

int main(int count, char** arguments) {
  CLI::App app{"Styled text for host programs.", "styledtext"};
  app.require_subcommand(1);
  app.failure_message([](const CLI::App*, const CLI::Error& error) {
    return std::string("styledtext: ") + error.what() + " (--help says more)\n";
  });

  tool::RunOptions runOptions;
  CLI::App* run = app.add_subcommand("run", "Run a host program");
  run->add_flag("--check-references", runOptions.checkReferences, "Report what is still alive when the program has ended");
  run->add_option("program", runOptions.invocation.path, "The program's file")->required();
  run->prefix_command()->footer("What follows the program's file are its arguments.");

  std::string className;
  bool markdown = false;
  CLI::App* classes = app.add_subcommand("classes", "List the classes with their members");
  classes->add_option("name", className, "Only this class");
  classes->add_flag("--markdown", markdown, "As a Markdown document");

  tool::ConvertOptions conversion;
  CLI::App* convert = app.add_subcommand("convert", "Convert documents");
  convert->add_option("documents", conversion.inputs, "The documents")->required();
  convert->add_option("-o,--output", conversion.output, "The file to write");
  convert->add_option("--to", conversion.to, "The format to write")->check(CLI::IsMember(tool::writableFormats()));
  convert->add_option("--into", conversion.folder, "The folder to write into");
  convert->add_option("--from", conversion.from, "The format to read")->check(CLI::IsMember(tool::readableFormats()));

  tool::InspectOptions inspection;
  CLI::App* inspect = app.add_subcommand("inspect", "Show the runs of a document and what it says of itself");
  inspect->add_option("document", inspection.path, "The document")->required();
  inspect->add_flag("--json", inspection.json, "As JSON");
  inspect->add_option("--from", inspection.from, "The format to read")->check(CLI::IsMember(tool::readableFormats()));

  tool::PreviewOptions preview;
  CLI::App* previewing = app.add_subcommand("preview", "Make a picture of a page of a document");
  previewing->add_option("document", preview.path, "The document")->required();
  previewing->add_option("-o,--output", preview.output, "The PNG file to write")->required();
  previewing->add_option("--page", preview.page, "The page's number, from 1")->check(CLI::PositiveNumber);
  previewing->add_option("--resolution", preview.resolution, "Pixels an inch")->check(CLI::Range(10, 600));
  previewing->add_option("--from", preview.from, "The format to read")->check(CLI::IsMember(tool::readableFormats()));

  try {
    app.parse(count, arguments);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? tool::Succeeded : tool::WrongUsage;
  }
  if (classes->parsed()) return tool::listClasses(className, markdown);
  if (convert->parsed()) return tool::convertDocuments(conversion);
  if (inspect->parsed()) return tool::inspectDocument(inspection);
  if (previewing->parsed()) return tool::previewDocument(preview);
  runOptions.invocation.arguments = run->remaining();
  return tool::runProgram(runOptions);
}
