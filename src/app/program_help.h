// program_help.h — program: what `quillon --help` and `quillon --version` print. They are
// answered before the window system is reached, so they work without a display.
#pragma once

#include <optional>
#include <string>

namespace quillon {

// The usage text; the menu entries --open takes are listed from the main window's routes.
std::string ProgramUsage();

// The exit status when the arguments ask for the help or the version (printed to stdout), else
// nothing: the program starts.
std::optional<int> AnswerHelpOrVersion(int argc, const char* const* argv);

} // namespace quillon
