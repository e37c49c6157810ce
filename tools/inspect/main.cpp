/// Prints the tree of a chart file or polysurface file.

#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "inspect/inspection.h"
#include "orvalix/orvalix.h"
#include "support/common_options.h"

namespace {

constexpr int kWhole = 0;
constexpr int kBroken = 1;
constexpr int kUnread = 2;

constexpr const char* kProgram = "orvalix-inspect";

constexpr const char* kHelp =
    "usage: orvalix-inspect [--chart | --surface] FILE\n"
    "       orvalix-inspect --help | --version\n"
    "\n"
    "Prints what a chart file (CChartView3D::Save) or a polysurface file (CPolysurface::Save) "
    "holds:\n"
    "a line for each field with the offset of its first byte. Files don't tell their kind: "
    "without\n"
    "an option it is the one as which more of the file can be read.\n"
    "\n"
    "Exits with 0 when the file is whole, with 1 when it is broken, which the last line tells, "
    "and\n"
    "with 2 when it can't be opened or the command line not be understood.\n";

}  // namespace

int main(int argc, char** argv) {
  orvalix::FileKind kind = orvalix::FileKind::kUnknown;
  std::vector<std::string> names;
  for (const std::string& argument : std::vector<std::string>(argv + 1, argv + argc)) {
    if (orvalix::AnswerCommonOption(argument, kProgram, kHelp, std::cout)) return kWhole;
    if (argument == "--chart") {
      kind = orvalix::FileKind::kChart;
    } else if (argument == "--surface") {
      kind = orvalix::FileKind::kPolysurface;
    } else if (argument.starts_with("--")) {
      return orvalix::RefuseCommandLine(kProgram, "unknown option " + argument, std::cerr);
    } else {
      names.push_back(argument);
    }
  }
  if (names.size() != 1) {
    return orvalix::RefuseCommandLine(kProgram, names.empty() ? "no file" : "more than one file",
                                      std::cerr);
  }
  try {
    return orvalix::Inspect(names[0], kind, std::cout) ? kWhole : kBroken;
  } catch (const CErr3D&) {
    std::cerr << "orvalix-inspect: can't open " << names[0] << '\n';
  } catch (const std::exception& error) {
    std::cerr << "orvalix-inspect: " << error.what() << '\n';
  }
  return kUnread;
}
