#include "support/common_options.h"

namespace orvalix {

bool AnswerCommonOption(const std::string& argument, const std::string& program,
                        const std::string& help, std::ostream& out) {
  if (argument == "-h" || argument == "--help") {
    out << help;
    return true;
  }
  if (argument == "-v" || argument == "--version") {
    out << program << ' ' << ORVALIX_VERSION << '\n';
    return true;
  }
  return false;
}

int RefuseCommandLine(const std::string& program, const std::string& problem, std::ostream& out) {
  constexpr int kUsage = 2;
  out << program << ": " << problem << "; --help tells how it is used\n";
  return kUsage;
}

}  // namespace orvalix
