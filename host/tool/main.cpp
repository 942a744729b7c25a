// The command line, styledtext.
#include "host/tool/command_line.hpp"

int main(int count, char** arguments) { return tool::CommandLine().run(count, arguments); }
