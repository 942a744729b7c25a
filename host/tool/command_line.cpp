// Declares each command, with examples for its help.
#include "host/tool/command_line.hpp"

#include <iostream>

#include "host/tool/completion.hpp"
#include "host/tool/documents.hpp"
#include "host/tool/messages.hpp"
#include "host/tool/platform_log.hpp"

namespace tool {
namespace {

constexpr char footer[] = R"help(
Exit status:
  0  everything was done
  1  something failed; a message on standard error says what
  2  the command line is wrong; nothing was done
  3  run --check-references found values that are still alive

"styledtext COMMAND --help" explains a command. A document or a program called "-" is standard input, a file to write
called "-" standard output.)help";

constexpr char runExamples[] = R"help(
What follows the program's file are its arguments.

Examples:
  styledtext run letter.bas
  styledtext run convert.bas in.html out.rtf
  styledtext run --check letter.bas
  echo 'Print 6 * 7' | styledtext run -)help";

constexpr char convertExamples[] = R"help(
What a document is, its content says, and where that leaves it open its name. Documents that cannot be converted are
reported, and the others converted. What is written appears when it is complete, in place of what was there.

Examples:
  styledtext convert letter.rtf -o letter.pdf
  styledtext convert *.doc *.docx --to odt --into converted --jobs 4
  styledtext convert - --from html --to txt -o - < page.html)help";

constexpr char inspectExamples[] = R"help(
Examples:
  styledtext inspect letter.rtf
  styledtext inspect letter.rtf --json | jq '.runs[].text')help";

constexpr char previewExamples[] = R"help(
Examples:
  styledtext preview letter.rtf -o letter.png
  styledtext preview book.odt --page 12 --resolution 150 -o page12.png)help";

constexpr char classesExamples[] = R"help(
Examples:
  styledtext classes
  styledtext classes NSAttributedStringZKT
  styledtext classes --json | jq '.[].name')help";

constexpr char completionExamples[] = R"help(
Examples:
  eval "$(styledtext completion)"
  styledtext completion > ~/.local/share/bash-completion/completions/styledtext)help";

void addFormatOption(CLI::App* command, std::string& format) {
  command->add_option("--from", format, "The format to read")->type_name("FORMAT")->check(CLI::IsMember(readableFormats()));
}

}  // namespace

CommandLine::CommandLine() : app_("Styled text for host programs: documents read, written and shown.", "styledtext") {
  app_.require_subcommand(1);
  app_.footer(footer);
  app_.set_version_flag("--version", "styledtext " STYLEDTEXT_VERSION, "Print the version");
  app_.add_flag("--log", log_, "Show what the platform logs");
  app_.failure_message([](const CLI::App*, const CLI::Error& error) {
    return messageText(error.what() + std::string(" (--help says more)"));
  });
  addRun();
  addConvert();
  addInspect();
  addPreview();
  addClasses();
  addCompletion();
}

int CommandLine::run(int count, char** arguments) {
  try {
    app_.parse(count, arguments);
  } catch (const CLI::ParseError& error) {
    return app_.exit(error) == 0 ? Succeeded : WrongUsage;
  }
  if (!log_) silencePlatformLog();
  try {
    return chosen_();
  } catch (const std::exception& error) {
    std::cerr << messageText(error.what());
    return Failed;
  }
}

CLI::App* CommandLine::add(const char* name, const char* description, Command command) {
  CLI::App* added = app_.add_subcommand(name, description);
  added->callback([this, command = std::move(command)] { chosen_ = command; });
  return added;
}

void CommandLine::addRun() {
  CLI::App* run = add("run", "Run a host program", [this] { return runProgram(running_); });
  run->add_flag("--check", running_.checkOnly,
                "Report the program's errors as FILE:LINE:COLUMN: MESSAGE, without running it");
  run->add_flag("--check-references", running_.checkReferences, "Report what is still alive when the program has ended");
  run->add_option("program", running_.invocation.path, "The program's file")->required()->type_name("FILE");
  run->prefix_command()->footer(runExamples);
  run->callback([this, run] {
    running_.invocation.arguments = run->remaining();
    chosen_ = [this] { return runProgram(running_); };
  });
}

void CommandLine::addConvert() {
  CLI::App* convert = add("convert", "Convert documents", [this] { return convertDocuments(conversion_); });
  convert->add_option("documents", conversion_.inputs, "The documents")->required()->type_name("FILE");
  convert->add_option("-o,--output", conversion_.output, "The file to write")->type_name("FILE");
  convert->add_option("--to", conversion_.to, "The format to write")
      ->type_name("FORMAT")
      ->check(CLI::IsMember(writableFormats()));
  convert->add_option("--into", conversion_.folder, "The folder to write into")->type_name("FOLDER");
  addFormatOption(convert, conversion_.from);
  convert
      ->add_option("-j,--jobs", conversion_.jobs, "How many documents are converted at a time, each in a process of its own")
      ->type_name("N")
      ->check(CLI::Range(1, 256));
  convert->footer(convertExamples);
}

void CommandLine::addInspect() {
  CLI::App* inspect = add("inspect", "Show the runs of a document and what it says of itself",
                          [this] { return inspectDocument(inspection_); });
  inspect->add_option("document", inspection_.path, "The document")->required()->type_name("FILE");
  inspect->add_flag("--json", inspection_.json, "As JSON");
  addFormatOption(inspect, inspection_.from);
  inspect->footer(inspectExamples);
}

void CommandLine::addPreview() {
  CLI::App* preview = add("preview", "Make a picture of a page of a document", [this] { return previewDocument(preview_); });
  preview->add_option("document", preview_.path, "The document")->required()->type_name("FILE");
  preview->add_option("-o,--output", preview_.output, "The PNG file to write")->required()->type_name("FILE");
  preview->add_option("--page", preview_.page, "The page's number, from 1")->type_name("N")->check(CLI::Range(1, 1'000'000));
  preview->add_option("--resolution", preview_.resolution, "Pixels an inch")->type_name("N")->check(CLI::Range(10, 600));
  addFormatOption(preview, preview_.from);
  preview->footer(previewExamples);
}

void CommandLine::addClasses() {
  CLI::App* classes = add("classes", "List the classes with their members", [this] { return listClasses(listing_); });
  classes->add_option("name", listing_.className, "Only this class")->type_name("CLASS");
  classes->add_flag("--markdown", listing_.markdown, "As a Markdown document");
  classes->add_flag("--json", listing_.json, "As JSON")->excludes("--markdown");
  CLI::Option* prose = classes->add_option("--prose", listing_.prose, "Make the reference, with the texts of this folder");
  prose->type_name("FOLDER");
  prose->needs(classes->add_option("--into", listing_.folder, "The folder that the reference's pages go to")
                   ->type_name("FOLDER")
                   ->needs(prose));
  classes->footer(classesExamples);
}

void CommandLine::addCompletion() {
  CLI::App* completion = add("completion", "Print what makes bash complete this command line", [this] {
    std::cout << bashCompletion(app_);
    return finishOutput();
  });
  completion->footer(completionExamples);
}

}  // namespace tool
