/// @file
/// What every program answers on its command line.
#pragma once

#include <ostream>
#include <string>

namespace orvalix {

/// Answers -h and --help with the help, -v and --version with the program's name and version.
/// @return false for every other argument, which isn't answered
bool AnswerCommonOption(const std::string& argument, const std::string& program,
                        const std::string& help, std::ostream& out);

/// Tells that a command line can't be understood.
/// @param problem what is wrong with it
/// @return the program's exit status, 2
int RefuseCommandLine(const std::string& program, const std::string& problem, std::ostream& out);

}  // namespace orvalix
